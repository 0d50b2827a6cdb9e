#include "gallery/updates/update_pages.hpp"

#include "app/dialog_style.hpp"
#include "gallery/parts.hpp"
#include "updates/dialogs/update_dialog.hpp"
#include "updates/session/safe_html.hpp"

#include <QBoxLayout>
#include <QDate>
#include <QLocale>
#include <QPainter>

namespace gallery {
namespace {

using namespace updates;

constexpr int untilIcon = 400; // ms: the program's icon comes a moment after the start

struct Sample {
    QString caption;
    UpdateScene scene;
};

DialogContext context() {
    const auto nothing = [] {};
    return {.style = larkvox::dialogStyle(),
            .product = QStringLiteral("Larkvox"),
            .website = QUrl(QStringLiteral("https://www.fennick.example/")),
            .workspace = &platform::Workspace::shared(),
            .checksByItself = true,
            .checkAgain = nothing,
            .skip = nothing,
            .install = nothing,
            .relaunch = nothing,
            .dismiss = nothing,
            .setChecksByItself = [](bool) {}};
}

/// A dialog as it stands on the desktop, without its frame.
class Stage final : public QWidget {
  public:
    explicit Stage(UpdateDialog* dialog) {
        dialog->setParent(this, Qt::Widget);
        auto* const row = new QHBoxLayout(this);
        row->setContentsMargins(0, 0, 0, 0);
        row->addWidget(dialog);
        row->addStretch(1);
        dialog_ = dialog;
    }

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(kitColor("Grey 20%"), 1));
        painter.setBrush(QColor(0x15, 0x11, 0x1f));
        painter.drawRoundedRect(QRectF(dialog_->geometry()).adjusted(0.5, 0.5, -0.5, -0.5), 6, 6);
    }

  private:
    QWidget* dialog_;
};

Page page(const char* identifier, const char* title, const char* summary,
          std::vector<Sample> samples) {
    return {QString::fromLatin1(identifier),
            QStringLiteral("Updates"),
            QString::fromUtf8(title),
            QString::fromUtf8(summary),
            [samples = std::move(samples)](QWidget& view) {
                for (const Sample& sample : samples) {
                    view.layout()->addWidget(
                        makeLabel(sample.caption, 12, "Grey 60%", QFont::Medium));
                    view.layout()->addWidget(new Stage(makeUpdateDialog(sample.scene, context())));
                }
            },
            Page().width,
            untilIcon};
}

UpdateScene failed(UpdateProblem problem, const QString& detail = {}) {
    return scene::Failed{{problem, detail}, scene::Failed::While::looking};
}

NothingSuitable unsuitable(NothingSuitable::Why why) {
    AppcastItem item;
    item.version = "2.0";
    item.minimumSystemVersion = "6.12";
    return {why, item};
}

constexpr const char* notes =
    "<h2>What is new</h2><ul><li><b>Formant shift</b> follows the carrier’s key, and no longer "
    "steps "
    "at the ends of its range.</li><li>Sixteen new bands, with a <i>much</i> lower noise "
    "floor.</li>"
    "<li>The “Robot” button remembers its state per preset.</li></ul>"
    "<h3>Mended</h3><ul><li>A click when the carrier was switched off in the middle of a word.</li>"
    "<li>The window came up on the wrong screen.</li></ul>"
    "<p>All changes are on <a href=\"https://www.fennick.example/larkvox/changes\">our "
    "website</a>.</p>";

} // namespace

void addUpdatePages(std::vector<Page>& pages) {
    const QString offered = QString::fromStdString(safeHtml(notes).html);
    pages.push_back(page("update-permission", "Permission", "Asked once, on the second start.",
                         {{QStringLiteral("The question"), scene::Permission{}}}));
    pages.push_back(page(
        "update-offer", "Offer", "A new version, what is in it, and what to do about it.",
        {{QStringLiteral("With notes"),
          scene::Offer{QStringLiteral("1.1.0"), QStringLiteral("1.0.0"), false, false, offered,
                       false}},
         {QStringLiteral("An important one, notes still loading"),
          scene::Offer{QStringLiteral("1.1.1"), QStringLiteral("1.0.0"), true, false, {}, true}},
         {QStringLiteral("One that did not start"),
          scene::Offer{
              QStringLiteral("1.1.0"), QStringLiteral("1.0.0"), false, true, {}, false}}}));
    pages.push_back(
        page("update-progress", "Progress", "From the check to the last word.",
             {{QStringLiteral("Looking"), scene::Checking{}},
              {QStringLiteral("Downloading"),
               scene::Downloading{QStringLiteral("1.1.0"), {17'300'000, 41'200'000, 2'400'000}}},
              {QStringLiteral("Verifying"), scene::Unpacking{QStringLiteral("1.1.0"), 0}},
              {QStringLiteral("Unpacking"), scene::Unpacking{QStringLiteral("1.1.0"), 0.7}},
              {QStringLiteral("Ready"), scene::Ready{QStringLiteral("1.1.0")}},
              {QStringLiteral("Installing"), scene::Installing{QStringLiteral("1.1.0")}}}));
    pages.push_back(
        page("update-answers", "Answers", "A check on command always says how it ended.",
             {{QStringLiteral("Up to date"), scene::UpToDate{QStringLiteral("1.1.0"), true}},
              {QStringLiteral("Package"),
               scene::ManagedElsewhere{QStringLiteral("1.1.0"), Management::dpkg,
                                       QStringLiteral("larkvox")}},
              {QStringLiteral("Flatpak"),
               scene::ManagedElsewhere{QStringLiteral("1.1.0"), Management::flatpak,
                                       QStringLiteral("example.fennick.larkvox")}},
              {QStringLiteral("Read-only"),
               scene::ManagedElsewhere{QStringLiteral("1.1.0"), Management::readOnly, {}}},
              {QStringLiteral("Built from sources"),
               scene::ManagedElsewhere{QStringLiteral("1.1.0"), Management::nobody, {}}},
              {QStringLiteral("Needs a newer system"),
               scene::Unsuitable{unsuitable(NothingSuitable::Why::needsNewerSystem)}}}));
    pages.push_back(
        page("update-problems", "Problems", "Each says what is the matter and what to do.",
             {{QStringLiteral("Network"),
               failed(UpdateProblem::offline, QStringLiteral("updates.fennick.example"))},
              {QStringLiteral("Clock"),
               failed(UpdateProblem::clockLooksWrong,
                      QLocale().toString(QDate(2016, 1, 1), QLocale::LongFormat))},
              {QStringLiteral("Certificate"), failed(UpdateProblem::certificateUntrusted,
                                                     QStringLiteral("updates.fennick.example"))},
              {QStringLiteral("Sign-in page"), failed(UpdateProblem::signInFirst)},
              {QStringLiteral("Signature"), scene::Failed{{UpdateProblem::signatureWrong, {}}}},
              {QStringLiteral("Disk"), scene::Failed{{UpdateProblem::noSpace, {}}}},
              {QStringLiteral("Another window"), scene::Failed{{UpdateProblem::busy, {}}}}}));
}

} // namespace gallery
