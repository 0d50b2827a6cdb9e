#pragma once

#include "fernhorn/dials/dial.hpp"
#include "fernhorn/dials/internal/value_field.hpp"
#include "fernhorn/fonts/resource_bundle_accessor.hpp"
#include "fernhorn/format/default_label_formatter.hpp"
#include "fernhorn/testing/parameter_fixture.hpp"
#include "platform/testing/window_testing.hpp"

namespace fernhorn {

inline constexpr LabelDisplayOptions look{.valueColor = {1, 1, 1, 1},
                                          .labelFontSize = 11,
                                          .valueFontSize = 13,
                                          .editingFontSize = 13,
                                          .showSuffix = true,
                                          .showName = false,
                                          .labelWidth = 52};

/// A window with a parameter and a dial or a label over it.
class Dials : public WithParameter {
  protected:
    QWidget window;
    int ended = 0;

    static void SetUpTestSuite() { resourceBundle().assets().registerFonts(); }

    void SetUp() override { use({.defaultValue = 0.5F}); }
    std::function<void()> countEnd() {
        return [this] { ++ended; };
    }
    template<class Control>
    Control& place(Control* control) {
        control->setParent(&window);
        control->move(20, 20);
        control->resize(control->sizeHint().expandedTo(QSize(40, 40)));
        control->show();
        window.resize(300, 200);
        platform::testing::showActive(window);
        return *control;
    }
    ChaosDial& placeDial() {
        return place(new ChaosDial(parameter, ModernDialColor::grey, look, nullptr, countEnd()));
    }
    DialLabel& placeLabel(std::shared_ptr<const LabelFormatter> formatter = nullptr) {
        if (formatter == nullptr) {
            formatter = std::make_shared<DefaultLabelFormatter>(*parameter, 1);
        }
        return place(new DialLabel(parameter, look, std::move(formatter), countEnd(), Qt::red,
                                   FernFont::rocket));
    }
    static ValueField& field(QWidget& label) {
        auto* const found = label.findChild<ValueField*>();
        EXPECT_NE(found, nullptr);
        return *found;
    }
};

} // namespace fernhorn
