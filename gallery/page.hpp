#pragma once

#include <QString>

#include <functional>
#include <vector>

class QWidget;

namespace gallery {

/// One page of the gallery. A library adds its pages with one function, listed in `pages.cpp`; a
/// page is one file.
struct Page {
    QString identifier; ///< for the command line and file names
    QString group;      ///< pages of a group stand below each other
    QString title;
    QString summary;                     ///< one sentence
    std::function<void(QWidget&)> build; ///< puts the content into the widget, which has a column
    int width = 824;                     ///< points, with margins of 32 at both sides
    int settlingTime = 0;                ///< ms until a page that moves is worth a picture
    bool hasVisual = false;              ///< drawn by the GPU: the window composites with it then
};

/// All pages, in the order of the list.
const std::vector<Page>& pages();

} // namespace gallery
