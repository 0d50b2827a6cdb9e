#pragma once

#include "driftwood/style/control_style.hpp"

// All of this is for the main thread.
namespace driftwood {

/// The style of tables.
class TableViewStyle : public ControlStyle {
  public:
    TableViewStyle();

    [[nodiscard]] const Color& rowBackgroundColor() const { return rowBackgroundColor_; }
    void setRowBackgroundColor(Color color) { setLook(rowBackgroundColor_, std::move(color)); }

    [[nodiscard]] const Color& selectedRowBackgroundColor() const {
        return selectedRowBackgroundColor_;
    }
    void setSelectedRowBackgroundColor(Color color) {
        setLook(selectedRowBackgroundColor_, std::move(color));
    }

    [[nodiscard]] const Color& headerBackgroundColor() const { return headerBackgroundColor_; }
    void setHeaderBackgroundColor(Color color) {
        setLook(headerBackgroundColor_, std::move(color));
    }

  private:
    Color rowBackgroundColor_;
    Color selectedRowBackgroundColor_;
    Color headerBackgroundColor_;
};

/// The style of outlines; a kind of its own, so that it can be restyled.
class OutlineViewStyle : public TableViewStyle {};

} // namespace driftwood
