#include "gallery/driftwood/driftwood_pages.hpp"
#include "gallery/driftwood/state_board.hpp"

#include "driftwood/controls/styled_segmented_control.hpp"
#include "driftwood/declarative/drift_segmented_control.hpp"
#include "gallery/parts.hpp"

#include <QBoxLayout>
#include <QLabel>

namespace gallery {
namespace {

using driftwood::StyledSegmentedControl;

const QStringList tabTitles{QStringLiteral("Oscillator"), QStringLiteral("Filter"),
                            QStringLiteral("Output")};

/// One of the tabs in a state; `pressed` and `selected` are segments.
Specimen tabsAs(const char* caption, std::optional<int> selected, std::optional<int> pressed = {},
                bool isEnabled = true, bool hides = false, bool hasRing = false) {
    return {QString::fromLatin1(caption), [=] {
                auto* const control = new StyledSegmentedControl(tabTitles);
                control->setSelectedSegment(selected);
                control->styledCell().row().setPressed(pressed);
                control->setEnabled(isEnabled);
                control->setHideSelection(hides);
                control->setFocusRingPictured(hasRing);
                return control;
            }};
}

std::shared_ptr<driftwood::DriftSegmentedControlModel> makeModel() {
    driftwood::DriftSegmentedControlModel::Items items;
    int id = 0;
    for (const QString& title : tabTitles) {
        items.push_back(
            std::make_shared<const driftwood::DriftSegmentItem>(id++, title.toStdString()));
    }
    return std::make_shared<driftwood::DriftSegmentedControlModel>(items);
}

} // namespace

Page segmentedControlPage() {
    return {QStringLiteral("segmented-control"), QStringLiteral("Driftwood controls"),
            QStringLiteral("StyledSegmentedControl"),
            QStringLiteral("A row of tabs: one widget, whose segments the arrow keys lead through "
                           "and Space selects."),
            [](QWidget& view) {
                auto* const live = new StyledSegmentedControl(tabTitles);
                live->setSelectedSegment(0);
                auto* const filling = new StyledSegmentedControl(tabTitles);
                filling->setDistribution(driftwood::SegmentDistribution::fill);
                filling->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
                filling->setSelectedSegment(1);
                addLiveCard(view, {{live, QStringLiteral("Click, or Tab, arrows, Space")},
                                   {filling, QStringLiteral("Fills its place")}});
                addStateBoards(view,
                               {tabsAs("At rest", 1), tabsAs("Pressed", 1, 2),
                                tabsAs("Focused", 1, {}, true, false, true),
                                tabsAs("Selection hidden", 1, {}, true, true),
                                tabsAs("Disabled", 1, {}, false),
                                tabsAs("Disabled and pressed", 1, 2, false)},
                               2);
            }};
}

Page driftSegmentedControlPage() {
    return {QStringLiteral("drift-segmented-control"), QStringLiteral("Driftwood declarative"),
            QStringLiteral("DriftSegmentedControl"),
            QStringLiteral("A row of tabs over a model: a second click on the selected one "
                           "deselects it."),
            [](QWidget& view) {
                const auto model = makeModel();
                model->select(0);
                addLiveCard(view, {{new driftwood::DriftSegmentedControl(model),
                                    QStringLiteral("Click one of them twice")}});
                const auto as = [](const char* caption, auto change) -> Specimen {
                    return {QString::fromLatin1(caption), [change] {
                                const auto shown = makeModel();
                                shown->select(1);
                                auto* const control = new driftwood::DriftSegmentedControl(shown);
                                change(*control, *shown);
                                return control;
                            }};
                };
                using Control = driftwood::DriftSegmentedControl;
                using Model = driftwood::DriftSegmentedControlModel;
                addStateBoards(
                    view,
                    {as("At rest", [](Control&, Model&) {}),
                     as("None selected", [](Control&, Model& m) { m.selectedItem.set(nullptr); }),
                     as("Selection hidden", [](Control&, Model& m) { m.hideSelection.set(true); }),
                     as("Pressed", [](Control& c, Model&) { c.buttons()[2]->setDown(true); }),
                     as("Selected and pressed",
                        [](Control& c, Model&) { c.buttons()[1]->setDown(true); }),
                     as("Disabled", [](Control& c, Model&) { c.setEnabled(false); })},
                    2);
            }};
}

} // namespace gallery
