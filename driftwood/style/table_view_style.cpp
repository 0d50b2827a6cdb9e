#include "driftwood/style/table_view_style.hpp"

#include "driftwood/style/styles.hpp"

namespace driftwood {

TableViewStyle::TableViewStyle()
    : rowBackgroundColor_(Styles::TableView::background()),
      selectedRowBackgroundColor_(Styles::TableRow::selectedBackground()),
      headerBackgroundColor_(Styles::TableHeader::background()) {
    setTextColor(Styles::TableRow::textColor());
    setSelectedTextColor(Styles::TableRow::selectedTextColor());
}

} // namespace driftwood
