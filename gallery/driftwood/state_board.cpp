#include "gallery/driftwood/state_board.hpp"

#include "gallery/parts.hpp"

#include <QGridLayout>
#include <QHBoxLayout>

#include <array>

namespace gallery {
namespace {

constexpr int beyondEdges = 4; // focus rings and bezels

QWidget* makeStateBoard(const std::vector<Specimen>& specimens, int columns) {
    auto* const board = new QWidget;
    auto* const grid = new QGridLayout(board);
    grid->setContentsMargins(0, 0, 0, beyondEdges);
    grid->setHorizontalSpacing(24);
    grid->setVerticalSpacing(4);
    int place = 0;
    for (const Specimen& specimen : specimens) {
        const int row = place / columns * 3;
        const int column = place % columns;
        grid->addWidget(makeLabel(specimen.caption, 11, "Grey 50%"), row, column, Qt::AlignLeading);
        QWidget* const control = specimen.make();
        control->setAttribute(Qt::WA_TransparentForMouseEvents);
        control->setFocusPolicy(Qt::NoFocus);
        for (QWidget* const part : control->findChildren<QWidget*>()) {
            part->setFocusPolicy(Qt::NoFocus);
        }
        const bool grows = control->sizePolicy().expandingDirections().testFlag(Qt::Horizontal);
        grid->addWidget(control, row + 1, column,
                        grows ? Qt::Alignment(Qt::AlignTop) : Qt::AlignLeading | Qt::AlignTop);
        grid->setRowMinimumHeight(row + 2, 8);
        ++place;
    }
    for (int column = 0; column < columns; ++column) {
        grid->setColumnStretch(column, 1);
    }
    return board;
}

} // namespace

void addInBothDirections(QWidget& view, const std::function<QWidget*()>& makeBoard) {
    struct Board {
        const char* heading;
        Qt::LayoutDirection direction;
    };
    constexpr std::array boards{Board{"Every state, left to right", Qt::LeftToRight},
                                Board{"Every state, right to left", Qt::RightToLeft}};
    for (const Board& shown : boards) {
        auto* const card = new Card(QString::fromLatin1(shown.heading));
        QWidget* const board = makeBoard();
        board->setLayoutDirection(shown.direction);
        card->column().addWidget(board);
        view.layout()->addWidget(card);
    }
}

void addStateBoards(QWidget& view, const std::vector<Specimen>& specimens, int columns) {
    addInBothDirections(view, [&] { return makeStateBoard(specimens, columns); });
}

void addLiveCard(QWidget& view, const std::vector<LiveRow>& rows) {
    auto* const card = new Card(QStringLiteral("Live"));
    for (const LiveRow& row : rows) {
        auto* const line = new QHBoxLayout;
        line->setSpacing(24);
        const bool grows = row.control->sizePolicy().expandingDirections().testFlag(Qt::Horizontal);
        line->addWidget(row.control, grows ? 1 : 0);
        line->addWidget(makeLabel(row.hint, 11, "Grey 60%"), grows ? 0 : 1);
        card->column().addLayout(line);
    }
    view.layout()->addWidget(card);
}

} // namespace gallery
