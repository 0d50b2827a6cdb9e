#include "gallery/driftwood/driftwood_pages.hpp"
#include "gallery/driftwood/text_board.hpp"

#include "driftwood/text/declarative_text_fields.hpp"
#include "gallery/parts.hpp"

namespace gallery {
namespace {

QWidget* searchSpecimen(const TextLook& look, const TextRow& row) {
    auto* const field = new driftwood::StyledSearchField;
    pictureText(*field, look, row);
    return field;
}

/// Names that are left while one types.
QWidget* liveSearch() {
    auto* const view = new QWidget;
    auto* const column = new QVBoxLayout(view);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(12);
    const auto searched = std::make_shared<core::Observable<QString>>();
    auto* const search = new driftwood::StyledSearchFieldWrapper(core::Binding(searched),
                                                                 QStringLiteral("Search presets"));
    search->setFixedWidth(260);
    column->addWidget(search);
    QLabel* const found = makeLabel({}, 12, "Grey 70%");
    const auto filter = [found](const QString& text) {
        QStringList names{QStringLiteral("Glass Horizon"), QStringLiteral("Night Choir"),
                          QStringLiteral("Paper Robot"), QStringLiteral("Slow Comet")};
        found->setText(names.filter(text, Qt::CaseInsensitive).join(QStringLiteral("   ·   ")));
    };
    filter({});
    column->addWidget(found);
    // Kept by what it follows: the label goes after the field.
    auto* const subscription = new core::Subscription(searched->observe(filter));
    QObject::connect(search, &QObject::destroyed, [subscription] { delete subscription; });
    return view;
}

} // namespace

Page searchFieldPage() {
    return {QStringLiteral("styled-search-field"), QStringLiteral("Driftwood text"),
            QStringLiteral("StyledSearchField"),
            QStringLiteral("Searches with every change; the cross or Escape clears it."),
            [](QWidget& view) {
                auto* const card = new Card(QStringLiteral("Live"));
                card->column().addWidget(liveSearch());
                view.layout()->addWidget(card);
                addTextBoards(
                    view,
                    {{.name = "At rest"},
                     {.name = "Focused", .isFocused = true},
                     {.name = "Disabled", .isEnabled = false}},
                    {{"Empty", {}, QStringLiteral("Search")},
                     {"Text", QStringLiteral("choir")},
                     {"Too long", QStringLiteral("a search that is far too long for it")}},
                    searchSpecimen);
            }};
}

} // namespace gallery
