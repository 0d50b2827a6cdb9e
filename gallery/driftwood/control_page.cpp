#include "gallery/driftwood/control_page.hpp"

#include "driftwood/controls/styled_check_box.hpp"
#include "gallery/driftwood/restyle_panel.hpp"
#include "gallery/parts.hpp"
#include "platform/controls/padded_item.hpp"

#include <QGridLayout>
#include <QHBoxLayout>

#include <algorithm>

namespace gallery {
namespace {

using platform::CellButton;
using platform::StateValue;

constexpr int captionWidth = 64;
constexpr int boardColumnWidth = 82;
// Around what stands by its alignment lines: bezels and focus rings go beyond them.
constexpr int beyondLines = 6;

driftwood::Selectable* selectable(CellButton& button) {
    return dynamic_cast<driftwood::Selectable*>(&button);
}

QString nameOf(StateValue state) {
    switch (state) {
    case StateValue::on:
        return QStringLiteral("On");
    case StateValue::mixed:
        return QStringLiteral("Mixed");
    case StateValue::off:
        break;
    }
    return QStringLiteral("Off");
}

/// A column of the board.
struct Look {
    const char* name;
    bool isSelected;
    bool isHighlighted;
    bool isEnabled;
    bool isFocused;
};

constexpr Look looks[] = {
    {"At rest", false, false, true, false}, {"Pressed", false, true, true, false},
    {"Focused", false, false, true, true},  {"Disabled", false, false, false, false},
    {"At rest", true, false, true, false},  {"Pressed", true, true, true, false},
    {"Focused", true, false, true, true},   {"Disabled", true, false, false, false},
};

/// Controls stand by their alignment lines, so that the edges that one sees are in one column.
QLayoutItem* aligned(CellButton& button) {
    const core::EdgeInsets insets = button.alignmentRectInsets();
    return new platform::PaddedItem(
        &button, QMarginsF(-insets.left, -insets.top, -insets.right, -insets.bottom));
}

/// A control that only shows a state.
CellButton* makeSpecimen(const ControlPage& page, StateValue state, const Look& look) {
    CellButton* const button = page.make();
    button->setAttribute(Qt::WA_TransparentForMouseEvents);
    button->setFocusPolicy(Qt::NoFocus);
    button->setShowsState(page.states.size() > 1);
    button->setState(state);
    button->setEnabled(look.isEnabled);
    if (look.isHighlighted) {
        page.press(*button);
    }
    button->setFocusRingPictured(look.isFocused);
    if (auto* const cell = selectable(*button)) {
        cell->setSelected(look.isSelected);
    }
    return button;
}

QWidget* makeBoard(const ControlPage& page, bool canBeSelected) {
    auto* const board = new QWidget;
    auto* const grid = new QGridLayout(board);
    grid->setContentsMargins(beyondLines, beyondLines, beyondLines, beyondLines);
    grid->setHorizontalSpacing(0);
    grid->setVerticalSpacing(12);
    grid->setColumnMinimumWidth(0, captionWidth);
    int column = 1;
    for (const Look& look : looks) {
        if (look.isSelected && !canBeSelected) {
            continue;
        }
        grid->setColumnMinimumWidth(column, boardColumnWidth);
        grid->addWidget(makeLabel(QString::fromLatin1(look.name), 11, "Grey 50%"), 1, column,
                        Qt::AlignLeading);
        int row = 2;
        for (const StateValue state : page.states) {
            CellButton* const specimen = makeSpecimen(page, state, look);
            specimen->setParent(board);
            grid->addItem(aligned(*specimen), row++, column, 1, 1,
                          Qt::AlignLeading | Qt::AlignVCenter);
        }
        ++column;
    }
    if (canBeSelected) {
        grid->addWidget(makeLabel(QStringLiteral("Not selected"), 11, "Grey 70%"), 0, 1, 1, 4,
                        Qt::AlignLeading);
        grid->addWidget(makeLabel(QStringLiteral("Selected"), 11, "Grey 70%"), 0, 5, 1, 4,
                        Qt::AlignLeading);
    }
    if (page.states.size() > 1) {
        int row = 2;
        for (const StateValue state : page.states) {
            grid->addWidget(makeLabel(nameOf(state), 11, "Grey 50%"), row++, 0, Qt::AlignLeading);
        }
    } else {
        grid->setColumnMinimumWidth(0, 0);
    }
    grid->setColumnStretch(column, 1);
    return board;
}

/// Called whenever a check box of the page is clicked.
class Switches final : public QWidget, public platform::ActionTarget {
  public:
    Switches(CellButton& live, const std::vector<StateValue>& states) : live_(live) {
        auto* const row = new QHBoxLayout(this);
        row->setContentsMargins(0, 0, 0, 0);
        row->setSpacing(24);
        enabled_ = add(*row, "Enabled");
        enabled_->setState(StateValue::on);
        if (selectable(live) != nullptr) {
            selected_ = add(*row, "Selected");
        }
        const auto has = [&](StateValue state) { return std::ranges::count(states, state) > 0; };
        if (has(StateValue::on)) {
            on_ = add(*row, "On");
        }
        if (has(StateValue::mixed)) {
            mixed_ = add(*row, "Mixed");
        }
        row->addStretch(1);
    }
    ~Switches() override { retire(); }

    /// After the control has changed by itself.
    void follow() {
        set(on_, live_.state() == StateValue::on);
        set(mixed_, live_.state() == StateValue::mixed);
    }

  private:
    static void set(driftwood::StyledCheckBox* box, bool isOn) {
        if (box != nullptr) {
            box->setState(isOn ? StateValue::on : StateValue::off);
        }
    }
    static bool isOn(const driftwood::StyledCheckBox* box) {
        return box != nullptr && box->state() == StateValue::on;
    }

    driftwood::StyledCheckBox* add(QHBoxLayout& row, const char* name) {
        auto* const box = new driftwood::StyledCheckBox(QString::fromLatin1(name));
        box->setAction(&Switches::apply, *this);
        row.addWidget(box);
        return box;
    }

    void apply(platform::Control& sender) {
        // On and mixed exclude each other.
        if (&sender == on_ && isOn(on_)) {
            set(mixed_, false);
        } else if (&sender == mixed_ && isOn(mixed_)) {
            set(on_, false);
        }
        live_.setEnabled(isOn(enabled_));
        if (auto* const cell = selectable(live_)) {
            cell->setSelected(isOn(selected_));
        }
        live_.setState(isOn(mixed_) ? StateValue::mixed
                       : isOn(on_)  ? StateValue::on
                                    : StateValue::off);
    }

    CellButton& live_;
    driftwood::StyledCheckBox* enabled_ = nullptr;
    driftwood::StyledCheckBox* selected_ = nullptr;
    driftwood::StyledCheckBox* on_ = nullptr;
    driftwood::StyledCheckBox* mixed_ = nullptr;
};

/// In the card's column by what is within the margins.
void addWithoutMargins(Card& card, QWidget& content) {
    content.setParent(&card);
    card.column().addItem(new platform::PaddedItem(
        &content, QMarginsF(-beyondLines, -beyondLines, -beyondLines, -beyondLines)));
}

/// The live control, its switches, and what it last sent.
class Stage final : public QWidget, public platform::ActionTarget {
  public:
    explicit Stage(const ControlPage& page)
        : report_(makeLabel(page.hint, 11, "Grey 60%")), live_(page.make()) {
        auto* const column = new QVBoxLayout(this);
        column->setContentsMargins(beyondLines, beyondLines, beyondLines, beyondLines);
        column->setSpacing(16);
        live_->setShowsState(page.states.size() > 1);
        switches_ = new Switches(*live_, page.states);
        auto* const row = new QHBoxLayout;
        row->setSpacing(24);
        live_->setParent(this);
        QLayoutItem* const item = aligned(*live_);
        item->setAlignment(Qt::AlignLeading | Qt::AlignVCenter);
        row->addItem(item);
        row->addWidget(report_, 1);
        column->addLayout(row);
        column->addWidget(switches_);
        live_->setAction(&Stage::clicked, *this);
        if (page.enliven) {
            page.enliven(*live_, *report_);
        }
    }
    ~Stage() override { retire(); }

  private:
    void clicked(platform::Control&) {
        switches_->follow();
        ++clicks_;
        report_->setText(clicks_ == 1 ? QStringLiteral("Sent its action")
                                      : QStringLiteral("Sent its action %1 times").arg(clicks_));
    }

    QLabel* report_;
    CellButton* live_;
    Switches* switches_ = nullptr;
    int clicks_ = 0;
};

} // namespace

void buildControlPage(QWidget& view, const ControlPage& page) {
    auto& column = static_cast<QBoxLayout&>(*view.layout());
    const std::unique_ptr<CellButton> example(page.make());
    const bool canBeSelected = selectable(*example) != nullptr;

    auto* const live = new Card(QStringLiteral("Live"));
    addWithoutMargins(*live, *new Stage(page));
    column.addWidget(live);
    const auto addBoard = [&](const char* heading, Qt::LayoutDirection direction) {
        auto* const card = new Card(QString::fromLatin1(heading));
        QWidget* const board = makeBoard(page, canBeSelected);
        board->setLayoutDirection(direction);
        addWithoutMargins(*card, *board);
        column.addWidget(card);
    };
    addBoard("Every state, left to right", Qt::LeftToRight);
    addBoard("Every state, right to left", Qt::RightToLeft);
    if (page.style != nullptr) {
        auto* const card = new Card(QStringLiteral("Restyle the class"));
        card->column().addWidget(makeRestylePanel(*page.style));
        column.addWidget(card);
    }
}

} // namespace gallery
