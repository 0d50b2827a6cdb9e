#pragma once

#include <QString>

#include <functional>
#include <vector>

class QWidget;

namespace gallery {

/// One look of a control: what it is called, and a new control that looks so.
struct Specimen {
    QString caption;
    std::function<QWidget*()> make;
};

/// Two cards with every specimen, captions above them: left to right, and right to left. They only
/// show: mouse and keyboard pass them by.
void addStateBoards(QWidget& view, const std::vector<Specimen>& specimens, int columns);

/// The same with boards of any kind; each call makes a new one.
void addInBothDirections(QWidget& view, const std::function<QWidget*()>& makeBoard);

/// A card with live controls below each other, a hint beside each.
struct LiveRow {
    QWidget* control;
    QString hint;
};
void addLiveCard(QWidget& view, const std::vector<LiveRow>& rows);

} // namespace gallery
