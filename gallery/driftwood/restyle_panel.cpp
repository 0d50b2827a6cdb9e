#include "gallery/driftwood/restyle_panel.hpp"

#include "driftwood/bridges/bundle_asset_source.hpp"
#include "driftwood/controls/kestrel_push_button.hpp"
#include "gallery/parts.hpp"
#include "platform/assets/system_font.hpp"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QPainter>

namespace gallery {
namespace {

using driftwood::ButtonCellStyle;
using driftwood::CheckBoxCellStyle;
using driftwood::Color;
using driftwood::KestrelPushButton;
using State = driftwood::StyledControlState;

/// A round sample of a colour.
class SwatchCell final : public platform::ButtonCell {
  public:
    explicit SwatchCell(const QColor& color) : color_(color) { setBordered(false); }

    [[nodiscard]] core::Size cellSize() const override { return {20, 20}; }

  protected:
    void drawInterior(const core::Rect& frame, const platform::CellCanvas& canvas) const override {
        canvas.painter.setRenderHint(QPainter::Antialiasing);
        canvas.painter.setPen(QPen(kitColor("Grey 40%"), 1));
        canvas.painter.setBrush(cellState().isHighlighted ? color_.darker(140) : color_);
        const QPointF middle = platform::toQRectF(frame).center();
        canvas.painter.drawEllipse(middle, 7.5, 7.5);
    }

  private:
    QColor color_;
};

class Swatch final : public platform::CellButton {
  public:
    explicit Swatch(const char* name) : CellButton(std::make_unique<SwatchCell>(kitColor(name))) {
        setAccessibleName(QString::fromLatin1(name));
        setToolTip(accessibleName());
    }
};

class RestylePanel final : public QWidget, public platform::ActionTarget {
  public:
    explicit RestylePanel(ButtonCellStyle& style)
        : style_(style), former_(read(style)), grid_(new QGridLayout(this)) {
        grid_->setContentsMargins(0, 0, 0, 0);
        grid_->setHorizontalSpacing(8);
        grid_->setVerticalSpacing(8);
        grid_->setColumnMinimumWidth(0, 120);
        using Style = ButtonCellStyle;
        addRow("Font", {{"Smaller", [this] { setFontSize(-1); }},
                        {"Larger", [this] { setFontSize(1); }},
                        {"Bolder", [this] { setFontWeight(QFont::Bold); }}});
        addColors("Title", {"Grey 85%", "Kestrel/Aqua", "Kestrel/LightBlue", "Kestrel/Yellow"},
                  &Style::setTextColor);
        addColors("Title, pressed or on",
                  {"Grey 50%", "Kestrel/Aqua", "Kestrel/Orange", "Grey 70%"},
                  &Style::setHighlightedTextColor);
        addColors("Focus ring", {"Highlight/System", "Kestrel/Aqua", "Kestrel/Orange", "Grey 100%"},
                  &Style::setFocusRingColor);
        if (auto* const box = dynamic_cast<CheckBoxCellStyle*>(&style_)) {
            addRow("Images",
                   {{"Boxes", [box] { box->setButtonImages(CheckBoxCellStyle().buttonImages()); }},
                    {"Stars", [box] {
                         box->setButtonImages(
                             driftwood::FavouriteCheckBoxCellStyle().buttonImages());
                     }}});
        } else {
            addBezels();
        }
        addRow("Room left of the title",
               {{"Less", [this] { moveTitle(-4); }}, {"More", [this] { moveTitle(4); }}});
        addRow("", {{"As it was", [this] { restore(); }}});
        grid_->setColumnStretch(grid_->columnCount(), 1);
    }
    ~RestylePanel() override {
        retire();
        restore();
    }

  private:
    /// What the panel can change.
    struct Fields {
        driftwood::Font font;
        Color textColor;
        Color highlightedTextColor;
        Color focusRingColor;
        driftwood::StateImages bezelImages;
        driftwood::StateImages buttonImages;
        core::EdgeInsets titleEdgeInsets;
    };
    struct Choice {
        const char* name;
        std::function<void()> apply;
    };

    static Fields read(const ButtonCellStyle& style) {
        const auto* const box = dynamic_cast<const CheckBoxCellStyle*>(&style);
        return {style.font(),
                style.textColor(),
                style.highlightedTextColor(),
                style.focusRingColor(),
                style.bezelImages(),
                box != nullptr ? box->buttonImages() : style.bezelImages(),
                style.titleEdgeInsets()};
    }

    void restore() {
        const driftwood::StyleEdit edit(style_); // told once
        style_.setFont(former_.font);
        style_.setTextColor(former_.textColor);
        style_.setHighlightedTextColor(former_.highlightedTextColor);
        style_.setFocusRingColor(former_.focusRingColor);
        style_.setBezelImages(former_.bezelImages);
        if (auto* const box = dynamic_cast<CheckBoxCellStyle*>(&style_)) {
            box->setButtonImages(former_.buttonImages);
        }
        style_.setTitleEdgeInsets(former_.titleEdgeInsets);
    }

    QHBoxLayout& addRow(const char* name) {
        const int row = grid_->rowCount();
        grid_->addWidget(makeLabel(QString::fromLatin1(name), 11, "Grey 50%"), row, 0);
        auto* const choices = new QHBoxLayout;
        choices->setSpacing(4);
        grid_->addLayout(choices, row, 1, Qt::AlignLeading | Qt::AlignVCenter);
        return *choices;
    }

    void add(QHBoxLayout& row, platform::CellButton* button, std::function<void()> apply) {
        button->setAction(
            [apply = std::move(apply)](ActionTarget&, platform::Control&) { apply(); }, *this);
        row.addWidget(button);
    }

    void addRow(const char* name, const std::vector<Choice>& choices) {
        QHBoxLayout& row = addRow(name);
        for (const Choice& choice : choices) {
            auto* const button = new KestrelPushButton(QString::fromLatin1(choice.name));
            button->setFixedWidth(76);
            add(row, button, choice.apply);
        }
    }

    void addColors(const char* name, const std::vector<const char*>& colors,
                   void (ButtonCellStyle::*set)(Color)) {
        QHBoxLayout& row = addRow(name);
        row.setContentsMargins(4, 4, 0, 4);
        row.setSpacing(8);
        for (const char* const color : colors) {
            add(row, new Swatch(color),
                [this, color, set] { (style_.*set)(driftwood::assetSource().color(color)); });
        }
    }

    void addBezels() {
        addRow("Bezel",
               {{"Its own", [this] { style_.setBezelImages(former_.bezelImages); }},
                {"Push", [this] { style_.setBezelImages(ButtonCellStyle().bezelImages()); }},
                {"Tab", [this] {
                     style_.setBezelImages({{State::default_, "dwk-window-tab"},
                                            {State::on, "dwk-window-tab-selected"},
                                            {State::highlighted, "dwk-window-tab-down"}});
                 }}});
    }

    void setFontSize(int change) {
        QFont font = driftwood::toQFont(style_.font());
        font.setPixelSize(std::clamp(font.pixelSize() + change, 8, 18));
        style_.setFont(driftwood::makeFont(font));
    }
    void setFontWeight(QFont::Weight weight) {
        QFont font = driftwood::toQFont(style_.font());
        font.setWeight(weight);
        style_.setFont(driftwood::makeFont(font));
    }
    void moveTitle(double change) {
        core::EdgeInsets insets = style_.titleEdgeInsets();
        insets.left = std::clamp(insets.left + change, 0.0, 40.0);
        style_.setTitleEdgeInsets(insets);
    }

    ButtonCellStyle& style_;
    Fields former_;
    QGridLayout* grid_;
};

} // namespace

QWidget* makeRestylePanel(driftwood::ButtonCellStyle& style) {
    return new RestylePanel(style);
}

} // namespace gallery
