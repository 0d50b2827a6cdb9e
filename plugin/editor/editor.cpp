#include "plugin/editor/editor.hpp"

#include "driftwood/bridges/bundle_asset_source.hpp"
#include "fernhorn/fonts/resource_bundle_accessor.hpp"
#include "platform/ui/appearance.hpp"
#include "plugin/window/plugin_window.hpp"

#include <QApplication>
#include <QDir>

#include <cmath>
#include <cstdio>
#include <utility>

namespace larkvox {

namespace {

using Kind = fernhorn::HostEdit::Kind;

bool fails(const char* why) {
    std::fprintf(stderr, "Larkvox: no window: %s\n", why);
    return false;
}

bool hasBundles(const char* folder) {
    const QDir directory(QString::fromLocal8Bit(folder));
    for (const char* const name : {"Fernhorn_Fernhorn.bundle", "Driftwood_Driftwood.bundle"}) {
        if (!directory.exists(QString::fromLatin1(name))) {
            return fails(name);
        }
    }
    return true;
}

/// Where the desktop is of another kind, an application object made now belongs to X11 all the
/// same, since the host's window does.
class PreferX11 {
  public:
    PreferX11() : before_(qgetenv(variable)) { qputenv(variable, "xcb"); }
    ~PreferX11() { before_.isNull() ? qunsetenv(variable) : qputenv(variable, before_); }
    PreferX11(const PreferX11&) = delete;
    PreferX11& operator=(const PreferX11&) = delete;

  private:
    static constexpr const char* variable = "QT_QPA_PLATFORM";
    const QByteArray before_;
};

/// Made when there is an application object.
std::unique_ptr<QWidget> makeWindow(const std::shared_ptr<VocoderSettings>& settings,
                                    bool isApplicationOurs) {
    if (isApplicationOurs) {
        platform::setAppearance(*qApp, platform::Appearance::darkAqua);
    }
    driftwood::installKitAssets();
    fernhorn::resourceBundle().assets().registerFonts();
    return std::make_unique<PluginWindow>(settings);
}

} // namespace

std::unique_ptr<Editor> Editor::open(const char* bundleFolder, WId parent, Host host) {
    if (!hasBundles(bundleFolder)) {
        return nullptr;
    }
    const bool isFirst = QCoreApplication::instance() == nullptr;
    if (!isFirst && QGuiApplication::platformName() != QStringLiteral("xcb")) {
        fails("the host's application has no windows of X11");
        return nullptr;
    }
    std::unique_ptr<Editor> editor(new Editor(std::move(host)));
    const PreferX11 prefer;
    editor->owner_ =
        fernhorn::EditorOwner::open(parent, [&] { return makeWindow(editor->settings_, isFirst); });
    if (editor->owner_ == nullptr) {
        fails("the host's application is of another kind");
        return nullptr;
    }
    return editor;
}

Editor::Editor(Host host)
    : host_(std::move(host)),
      settings_(VocoderSettings::make(core::MainQueue::shared())),
      edits_(settings_->unit().parameterTree()),
      // Behind the edits' own observer, so it finds there what has just been done.
      token_(settings_->unit().parameterTree()->addParameterAutomationObserver(
          [this](const platform::AUParameterAutomationEvent&) { tellHost(); })) {}

Editor::~Editor() {
    owner_.reset(); // and with it whatever is held
    settings_->unit().parameterTree()->removeParameterObserver(token_);
    // Values on their way to the window would keep its parameters.
    core::MainQueue::shared().drain();
}

void Editor::hostHasSet(std::size_t address, float value) {
    if (!std::isnan(value)) {
        edits_.writeFromHost(address, value);
    }
}

void Editor::tellHost() {
    edits_.take([this](const fernhorn::HostEdit& edit) {
        if (edit.kind == Kind::value) {
            host_.write(edit.address, edit.value);
        } else if (host_.touch) {
            host_.touch(edit.address, edit.kind == Kind::begin);
        }
    });
}

} // namespace larkvox
