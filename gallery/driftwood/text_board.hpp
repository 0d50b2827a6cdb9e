#pragma once

#include "gallery/page.hpp"
#include "platform/controls/text_field.hpp"

#include <QGridLayout>
#include <QHBoxLayout>

#include <functional>
#include <vector>

namespace gallery {

/// A column of a board of fields.
struct TextLook {
    const char* name;
    bool isFocused = false;
    bool isEnabled = true;
    bool isValid = true;
    bool isSelected = false;
};

/// A row of it.
struct TextRow {
    const char* name;
    QString text;
    QString placeholder = {};
};

/// Makes what stands in a place of a board: a field that only shows a state.
using MakeTextSpecimen = std::function<QWidget*(const TextLook&, const TextRow&)>;

/// The page's content: a board of every state in both directions of reading.
void addTextBoards(QWidget& view, const std::vector<TextLook>& looks,
                   const std::vector<TextRow>& rows, const MakeTextSpecimen& make);

/// A field as it looks in a state; it takes neither mouse nor keyboard.
void pictureText(platform::TextField& field, const TextLook& look, const TextRow& row);

/// A caption before something that can be used, in a row of a card.
QWidget* captioned(const char* caption, QWidget* content);

} // namespace gallery
