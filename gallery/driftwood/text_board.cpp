#include "gallery/driftwood/text_board.hpp"

#include "gallery/driftwood/state_board.hpp"
#include "gallery/parts.hpp"
#include "platform/controls/padded_item.hpp"

namespace gallery {
namespace {

constexpr int rowCaptionWidth = 76;

/// Fields stand by their alignment lines, so that the edges that one sees are below the captions.
QLayoutItem* byItsLines(QWidget& field, QWidget& in) {
    field.setParent(&in);
    const auto* const control = dynamic_cast<const platform::CellControl*>(&field);
    const core::EdgeInsets insets =
        control != nullptr ? control->alignmentRectInsets() : core::EdgeInsets();
    return new platform::PaddedItem(
        &field, QMarginsF(-insets.left, -insets.top, -insets.right, -insets.bottom));
}

QWidget* makeTextBoard(const std::vector<TextLook>& looks, const std::vector<TextRow>& rows,
                       const MakeTextSpecimen& make) {
    auto* const board = new QWidget;
    auto* const grid = new QGridLayout(board);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(12);
    grid->setColumnMinimumWidth(0, rowCaptionWidth);
    int column = 1;
    for (const TextLook& look : looks) {
        grid->addWidget(makeLabel(QString::fromLatin1(look.name), 11, "Grey 50%"), 0, column,
                        Qt::AlignLeading);
        grid->setColumnStretch(column, 1);
        int line = 1;
        for (const TextRow& row : rows) {
            grid->addItem(byItsLines(*make(look, row), *board), line++, column, 1, 1,
                          Qt::AlignVCenter);
        }
        ++column;
    }
    int line = 1;
    for (const TextRow& row : rows) {
        grid->addWidget(makeLabel(QString::fromLatin1(row.name), 11, "Grey 50%"), line++, 0,
                        Qt::AlignLeading | Qt::AlignVCenter);
    }
    return board;
}

} // namespace

void addTextBoards(QWidget& view, const std::vector<TextLook>& looks,
                   const std::vector<TextRow>& rows, const MakeTextSpecimen& make) {
    addInBothDirections(view, [&] { return makeTextBoard(looks, rows, make); });
}

void pictureText(platform::TextField& field, const TextLook& look, const TextRow& row) {
    field.setAttribute(Qt::WA_TransparentForMouseEvents);
    field.setFocusPolicy(Qt::NoFocus);
    field.setStringValue(row.text);
    field.setPlaceholderString(row.placeholder);
    field.setEnabled(look.isEnabled);
    field.setFocusRingPictured(look.isFocused);
}

QWidget* captioned(const char* caption, QWidget* content) {
    auto* const view = new QWidget;
    auto* const column = new QVBoxLayout(view);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(6);
    column->addWidget(makeLabel(QString::fromLatin1(caption), 11, "Grey 50%"));
    column->addItem(byItsLines(*content, *view));
    column->addStretch(1);
    return view;
}

} // namespace gallery
