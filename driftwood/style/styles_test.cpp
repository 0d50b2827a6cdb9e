#include "driftwood/style/images.hpp"
#include "driftwood/style/pop_up_cell_style.hpp"
#include "driftwood/style/segmented_cell_style.hpp"
#include "driftwood/style/slider_cell_style.hpp"
#include "driftwood/style/styled_control.hpp"
#include "driftwood/style/styles.hpp"
#include "driftwood/style/text_field_cell_style.hpp"
#include "driftwood/testing/asset_source_fake.hpp"

#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace driftwood {
namespace {

using State = StyledControlState;

class StylesTest : public testing::Test {
  protected:
    StylesTest() { fakeAssets(); }
};

TEST_F(StylesTest, ChooseColoursInTheirTwoOrders) {
    ControlStyle style;
    const auto name = [](std::string_view text) {
        return Color(std::make_shared<NamedColor>(text));
    };
    style.setTextColor(name("plain"));
    style.setDisabledTextColor(name("disabled"));
    style.setInvalidTextColor(name("invalid"));
    style.setSelectedTextColor(name("selected"));
    style.setHighlightedTextColor(name("pressed"));
    style.setBackgroundColor(name("plain"));
    style.setTextBackgroundColor(name("never"));
    style.setDisabledBackgroundColor(name("disabled"));
    style.setInvalidBackgroundColor(name("invalid"));
    style.setSelectedBackgroundColor(name("selected"));
    style.setHighlightedBackgroundColor(name("pressed"));
    const std::array<std::pair<int, std::string>, 4> textOrder{
        {{2, "disabled"}, {128, "invalid"}, {4, "selected"}, {8 + 32 + 64, "pressed"}}};
    const std::array<std::pair<int, std::string>, 4> groundOrder{
        {{128, "invalid"}, {8 + 32 + 64, "pressed"}, {4, "selected"}, {2, "disabled"}}};
    const auto first = [](const auto& order, int state) {
        for (const auto& [flags, color] : order) {
            if ((state & flags) != 0) {
                return color;
            }
        }
        return std::string("plain");
    };
    for (int state = 0; state < 256; ++state) {
        EXPECT_EQ(nameOf(style.textColor(State(state))), first(textOrder, state)) << state;
        EXPECT_EQ(nameOf(style.textBackgroundColor(State(state))), first(groundOrder, state))
            << state;
        EXPECT_EQ(nameOf(style.focusRingColor(State(state))),
                  state >= 128 ? "Error" : "Highlight/System");
    }
}

TEST_F(StylesTest, FindTheImagesOfTheirStates) {
    // Of push buttons and check boxes the cells are compared, pixel by pixel.
    const CheckBoxCellStyle box;
    const TextFieldCellStyle field;
    const SliderCellStyle slider;
    const PopUpButtonCellStyle popUp;
    const ToolPopUpButtonCellStyle toolPopUp;
    const FavouriteCheckBoxCellStyle star;
    const ComboBoxStyle combo;
    struct Case {
        Image image;
        std::string name;
    };
    const std::vector<Case> cases{
        {box.image(State::on | State::selected), "dwk-checkbox-on-down"},
        {box.image(State(44)), "dwk-checkbox-on-down"},
        {box.bezelImage(State(1)), "dwk-button"},
        {star.image(State(9)), "organiser-icon-star-empty"},
        {field.bezelImage(State(144)), "dwk-textfield-error"},
        {field.bezelImage(State(145)), "dwk-textfield-error"},
        {SearchFieldCellStyle().bezelImage(State(145)), "dwk-searchfield-focus"},
        {HeaderTextFieldStyle().bezelImage(State(3)), "dwk-textfield-tableheader"},
        {slider.barImage(State(9)), "dwk-slider"},
        {slider.knobImage(State(65)), "dwk-slider-handle-multi"},
        {slider.bezelImage(State(1)), ""},
        {popUp.bezelImage(State(41)), "dwk-popup-down"},
        {popUp.bezelImage(State(33)), "dwk-popup"}, // nothing is left of a push button's table
        {toolPopUp.bezelImage(State(9)), "dwk-popup-tool-down"},
        {combo.bezelImage(State(1)), "dwk-button"},
        {SegmentedCellStyle().bezelImage(State(13)), "dwk-window-tab-down"},
        {DWImages::fennickLogoBig(), "window-fennick"},
    };
    for (std::size_t i = 0; i < cases.size(); ++i) {
        EXPECT_EQ(nameOf(cases[i].image), cases[i].name) << "case " << i;
    }
}

TEST_F(StylesTest, StartFromTheCatalogueWhereAMistakeWouldShow) {
    const ControlStyle control;
    const ButtonCellStyle button;
    EXPECT_EQ(button.font().get(), Styles::BaseStyles::mediumFont().get());
    EXPECT_EQ(button.selectedFont().get(), Styles::BaseStyles::normalFont().get());
    EXPECT_EQ(nameOf(control.textBackgroundColor(State(1))), "Background/Normal");
    EXPECT_EQ(nameOf(button.textBackgroundColor(State(1))), "clear");
    const CheckBoxCellStyle box;
    EXPECT_EQ(box.textColor(State(41)), box.textColor(State(1)));
    EXPECT_EQ(nameOf(box.textColor(State(5))), "Grey 100%");
    const ToolPopUpButtonCellStyle toolPopUp;
    EXPECT_EQ(toolPopUp.alignmentRectInsets(), (core::EdgeInsets{3, 2, 3, 2}));
    EXPECT_EQ(toolPopUp.edgeInsets(), (core::EdgeInsets{3, 0, 2, 12}));
    EXPECT_EQ(nameOf(toolPopUp.textColor(State(5))), "Grey 85%");
    EXPECT_EQ(SegmentedCellStyle().segmentPadding(), (core::EdgeInsets{0, 21, 0, 21}));
    const auto& mono = dynamic_cast<const SizedFont&>(*TableRowLabelCellStyle().font().get());
    EXPECT_EQ(mono.digits, FontDigits::monospaced);
    // Text must never have the colour of its ground.
    for (const int state : {1, 3, 5, 9, 129, 131, 133, 149}) {
        for (const ControlStyle* style :
             std::initializer_list<const ControlStyle*>{&control, &button, &box, &toolPopUp}) {
            EXPECT_NE(style->textColor(State(state)), style->textBackgroundColor(State(state)));
        }
        const TextFieldCellStyle field;
        EXPECT_NE(field.textColor(State(state)), field.textBackgroundColor(State(state)));
    }
}

TEST_F(StylesTest, MakeConstantsOnceButReadTheSystemHighlightAnew) {
    auto& requests = fakeAssets().colorRequests;
    EXPECT_EQ(Styles::Control::textColor().get(), DWColors::grey85().get());
    EXPECT_EQ(Styles::Label::textColor().get(), Styles::Label::nsTextColor().get());
    EXPECT_EQ(requests["Grey 85%"], 1);
    const int before = requests["Highlight/System"];
    const Color first = Styles::OutlineRow::selectedBackground();
    const Color second = Styles::OutlineRow::selectedBackground();
    EXPECT_EQ(requests["Highlight/System"], before + 2);
    EXPECT_NE(first.get(), second.get());
    EXPECT_EQ(first, second);
}

TEST_F(StylesTest, TellTheirObserversOncePerChangeAndNeverOfNone) {
    ButtonCellStyle style;
    std::vector<StyleChange> changes;
    auto subscription = style.observe([&](StyleChange change) { changes.push_back(change); });
    style.setTextColor(fakeAssets().color("Grey 85%")); // another object, the same colour
    style.setBezelImages(StateImages(style.bezelImages()));
    style.setEdgeInsets({});
    EXPECT_TRUE(changes.empty());

    style.setTextColor(fakeAssets().color("Error"));
    style.setTitleEdgeInsets({1, 2, 3, 4});
    style.setOpaque(true);
    EXPECT_EQ(changes, (std::vector{StyleChange::look, StyleChange::layout, StyleChange::look}));

    changes.clear();
    {
        const StyleEdit edit(style);
        style.setFont(Styles::BaseStyles::titleFont());
        {
            const StyleEdit inner(style);
            style.setTextColor(fakeAssets().color("Grey 20%"));
        }
        EXPECT_TRUE(changes.empty());
        EXPECT_EQ(style.font(), Styles::BaseStyles::titleFont()) << "readers see it at once";
    }
    { const StyleEdit nothing(style); }
    EXPECT_EQ(changes, (std::vector{StyleChange::layout})) << "the further of the two";

    subscription.cancel();
    style.setOpaque(false);
    EXPECT_EQ(changes.size(), 1U);
}

TEST(StyledControlStates, AreThoseOfTheCellAndOfWhatElseItIs) {
    struct Field final : Selectable, Validating {
        [[nodiscard]] bool isSelected() const override { return selected; }
        void setSelected(bool isSelected) override { selected = isSelected; }
        [[nodiscard]] bool isValid() const override { return valid; }
        bool selected = false;
        bool valid = true;
    } field;
    using platform::StateValue;
    const struct {
        platform::CellState cell;
        bool selected;
        bool valid;
        int state;
    } cases[] = {
        {{}, false, true, 1},
        {{StateValue::on}, false, true, 33},
        {{StateValue::mixed}, true, true, 69},
        {{StateValue::on, false}, false, true, 1},
        {{StateValue::on, true, true, true}, false, true, 41},
        {{StateValue::on, true, false, true}, true, false, 33 + 2 + 4 + 128},
    };
    for (const auto& [cell, selected, valid, state] : cases) {
        field.selected = selected;
        field.valid = valid;
        EXPECT_EQ(styledControlState(cell, &field, &field).rawValue(), state);
    }
}

TEST(StylesDeathTest, StopWithoutASourceOfAssets) {
    EXPECT_DEATH((setAssetSource(nullptr), SliderCellStyle()),
                 "Fatal error: styles are used before setAssetSource");
}

} // namespace
} // namespace driftwood
