#include "fernhorn/buttons/button_face.hpp"
#include "fernhorn/buttons/callback_buttons.hpp"
#include "fernhorn/buttons/parameter_buttons.hpp"
#include "fernhorn/fonts/resource_bundle_accessor.hpp"
#include "fernhorn/header/plugin_header_view.hpp"
#include "gallery/fernhorn/fernhorn_pages.hpp"
#include "gallery/parts.hpp"
#include "platform/controls/accessible_role.hpp"
#include "platform/controls/focus_ring.hpp"
#include "platform/controls/line_text.hpp"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QPainter>

#include <array>

namespace gallery {
namespace {

using namespace fernhorn;
using Parameter = std::shared_ptr<AudioParameter>;

Parameter makeParameter(const char* name, float value, std::vector<std::string> names) {
    const float upper = names.empty() ? 1.0F : static_cast<float>(names.size() - 1);
    const auto units = names.empty() ? platform::AudioUnitParameterUnit::boolean
                                     : platform::AudioUnitParameterUnit::indexed;
    return std::make_shared<AudioParameter>(
        0, name, name, units, ValueRange{0, upper}, value, ValueIncrement::linear(),
        names.empty() ? std::nullopt : std::optional(std::move(names)));
}

const platform::ImageAsset* kitImage(const char* name) {
    return resourceBundle().assets().image(QString::fromLatin1(name));
}

/// A column of the board.
struct Look {
    const char* name;
    ButtonState state;
    bool hasFocus = false;
};

constexpr std::array looks{
    Look{"Off", {}},
    Look{"On", {.isOn = true}},
    Look{"Off, pressed", {.isPressed = true}},
    Look{"On, pressed", {.isOn = true, .isPressed = true}},
    Look{"Disabled", {.isEnabled = false}},
    Look{"Focus", {}, true},
};

/// Shows a button's face in one state.
class Specimen final : public QWidget {
  public:
    Specimen(const PressButton& button, const Look& look) : face_(button.face()), look_(look) {
        setFixedSize(button.sizeHint());
    }

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        paintButtonFace(painter, rect(), face_, look_.state, layout_);
        if (look_.hasFocus) {
            platform::paintFocusRing(painter, rect(), 5, palette());
        }
    }

  private:
    ButtonFace face_;
    Look look_;
    platform::LineText layout_;
};

/// A row for each button: the live one, and a specimen in each state.
class Board {
  public:
    explicit Board(Card& card) : grid_(new QGridLayout) {
        grid_->setHorizontalSpacing(14);
        grid_->setVerticalSpacing(10);
        grid_->addWidget(makeLabel(QStringLiteral("Live"), 11, "Grey 50%"), 0, 0);
        int column = 1;
        for (const Look& look : looks) {
            grid_->addWidget(makeLabel(QString::fromLatin1(look.name), 11, "Grey 50%"), 0,
                             column++);
        }
        grid_->setColumnStretch(column, 1);
        card.column().addLayout(grid_);
    }

    void add(const char* name, PressButton* live) {
        const int row = grid_->rowCount();
        grid_->addWidget(makeLabel(QString::fromLatin1(name), 11, "Grey 60%"), row, 0, 1, 5);
        grid_->addWidget(live, row + 1, 0, Qt::AlignLeading | Qt::AlignVCenter);
        int column = 1;
        for (const Look& look : looks) {
            grid_->addWidget(new Specimen(*live, look), row + 1, column++,
                             Qt::AlignLeading | Qt::AlignVCenter);
        }
    }

  private:
    QGridLayout* grid_;
};

/// Buttons of one parameter beside each other.
QWidget* makeGroup(const Parameter& parameter, const std::function<PressButton*(int)>& make) {
    auto* const group = new QWidget;
    platform::setAccessibleRole(*group, QAccessible::Grouping);
    group->setAccessibleName(QString::fromStdString(parameter->name()));
    auto* const row = new QHBoxLayout(group);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4);
    for (int i = 0; i < static_cast<int>(parameter->valueStrings()->size()); ++i) {
        row->addWidget(make(i));
    }
    row->addStretch(1);
    return group;
}

void addBoard(QWidget& view) {
    const QColor text = fernhorn::kitColor("buttonText");
    constexpr QSizeF keySize(84, 36);
    constexpr QSizeF flatSize(84, 27);
    const Parameter effect = makeParameter("Effect", 1, {"Robot", "Freeze", "Choir"});
    const Parameter wave = makeParameter("Wave", 0, {"Sine", "Saw", "Pulse", "Noise"});
    const Parameter mute = makeParameter("Mute", 0, {});
    const auto yellow = ChaosButtonColor::yellow;

    auto* const card = new Card(QStringLiteral("Live, and in every state"));
    Board board(*card);
    board.add("ChaosToggleButton", new ChaosToggleButton(effect, 1, yellow, keySize));
    board.add("ChaosToggleButtonNarrow",
              new ChaosToggleButtonNarrow(mute, QStringLiteral("M"), QSizeF(44, 36)));
    board.add("LeftRightArrowButton",
              new LeftRightArrowButton(makeParameter("Direction", 0, {}), 0, QSizeF(40, 28)));
    board.add("ToggleButton", new ToggleButton(mute, std::nullopt, 14, text, flatSize));
    board.add("ModeToggleButton, modern",
              new ModeToggleButton(wave, 1, ToggleButtonStyle::modern, 14, text, flatSize));
    board.add("ModeToggleButton, retro",
              new ModeToggleButton(wave, 1, ToggleButtonStyle::retro, 14, text, flatSize));
    board.add("ParameterHoldButton",
              new ParameterHoldButton(makeParameter("Stutter", 0, {}), kitImage("hold-pad"),
                                      kitImage("hold-pad-down")));
    board.add("ChaosButton", new ChaosButton(yellow, QStringLiteral("Randomise"), {}, keySize));
    auto* const die =
        new ImageButton(kitImage("die-button"), kitImage("die-button-down"), {}, QSizeF(36, 36));
    die->setAccessibleName(QStringLiteral("Roll the die"));
    board.add("ImageButton", die);
    view.layout()->addWidget(card);

    auto* const groups = new Card(QStringLiteral("Groups: arrow keys choose"));
    groups->column().addWidget(makeGroup(
        effect, [&](int i) { return new ChaosToggleButton(effect, i, yellow, keySize); }));
    for (const auto style : {ToggleButtonStyle::modern, ToggleButtonStyle::retro}) {
        groups->column().addWidget(makeGroup(
            wave, [&](int i) { return new ModeToggleButton(wave, i, style, 14, text, flatSize); }));
    }
    view.layout()->addWidget(groups);
}

/// A platform button's style in one state.
class StyleSpecimen final : public QWidget {
  public:
    StyleSpecimen(std::shared_ptr<const platform::ButtonStyle> style, QString label, bool isPressed,
                  bool isEnabled)
        : style_(std::move(style)), configuration_{std::move(label), isPressed, isEnabled} {
        setFixedSize(104, static_cast<int>(style_->height()));
    }

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        style_->paint(painter, rect(), configuration_);
    }

  private:
    std::shared_ptr<const platform::ButtonStyle> style_;
    platform::ButtonConfiguration configuration_;
};

void addStyles(QWidget& view) {
    auto* const card = new Card(
        QStringLiteral("Styles: live, live and disabled, at rest, pressed, pressed and disabled"));
    const QColor grey = fernhorn::kitColor("pluginGrey");
    const std::pair<const char*, std::shared_ptr<const platform::ButtonStyle>> styles[] = {
        {"ModernButtonStyle, off", std::make_shared<ModernButtonStyle>(false, grey)},
        {"ModernButtonStyle, on", std::make_shared<ModernButtonStyle>(true, grey)},
        {"SettingsButtonStyle", std::make_shared<SettingsButtonStyle>(FernFont::dosisMedium)},
    };
    for (const auto& [name, style] : styles) {
        card->column().addWidget(makeLabel(QString::fromLatin1(name), 11, "Grey 60%"));
        const QString label = QStringLiteral("Tuning…");
        auto* const row = new QHBoxLayout;
        row->setSpacing(14);
        auto* const live = new platform::Button(label, style);
        auto* const disabled = new platform::Button(label, style);
        disabled->setEnabled(false);
        row->addWidget(live);
        row->addWidget(disabled);
        row->addWidget(new StyleSpecimen(style, label, false, true));
        row->addWidget(new StyleSpecimen(style, label, true, true));
        row->addWidget(new StyleSpecimen(style, label, true, false));
        row->addStretch(1);
        card->column().addLayout(row);
    }
    view.layout()->addWidget(card);
}

void addHeaders(QWidget& view) {
    const Parameter page = makeParameter("Page", 1, {"Bands", "Carrier", "Motion", "Output"});
    const auto add = [&](const char* heading, const Parameter& tabs,
                         std::optional<UpdateAvailableDetails> update, FernFont font,
                         Qt::LayoutDirection direction) {
        auto* const card = new Card(QString::fromLatin1(heading));
        card->column().setContentsMargins(20, 16, 20, 16);
        auto* const menu = new ImageButton(kitImage("die-button"), kitImage("die-button-down"), {},
                                           QSizeF(36, 36));
        menu->setAccessibleName(QStringLiteral("Menu"));
        auto* const header =
            new PluginHeaderView(QUrl(QStringLiteral("https://www.fennick.example/")),
                                 QStringLiteral("1.1.0"), tabs, std::move(update), font, menu);
        header->setLayoutDirection(direction);
        card->column().addWidget(header);
        view.layout()->addWidget(card);
    };
    const UpdateAvailableDetails newer{QStringLiteral("1.2.0")};
    add("PluginHeaderView", page, {}, FernFont::rocket, Qt::LeftToRight);
    add("With an update", page, newer, FernFont::dosisMedium, Qt::LeftToRight);
    add("Right to left", page, newer, FernFont::rocket, Qt::RightToLeft);
    add("Without tabs", makeParameter("Page", 0, {}), {}, FernFont::dosisLight, Qt::LeftToRight);
}

} // namespace

Page pluginButtonsPage() {
    return {QStringLiteral("plugin-buttons"), QStringLiteral("Fernhorn"),
            QStringLiteral("Buttons and header"),
            QStringLiteral("The buttons of a plug-in window, bound to parameters or to a callback, "
                           "and the header above its pages."),
            [](QWidget& view) {
                addHeaders(view);
                addBoard(view);
                addStyles(view);
            }};
}

} // namespace gallery
