#include "updates/dialogs/offer_dialog.hpp"

#include "updates/dialogs/release_notes_view.hpp"

#include <QBoxLayout>
#include <QScreen>

#include <algorithm>

namespace updates {
namespace {

constexpr int notesHeight = 216;
constexpr int lineHeight = 48; // where there are none

} // namespace

OfferDialog::OfferDialog(const DialogContext& context, QWidget* parent)
    : UpdateDialog(context, parent), notes_(new ReleaseNotesView(*context.workspace)) {
    content().addWidget(notes_);
}

bool OfferDialog::show(const UpdateScene& scene) {
    const auto* const offer = std::get_if<scene::Offer>(&scene);
    if (offer == nullptr) {
        return false;
    }
    const QString& product = context().product;
    //: %1 is the name of the program, %2 the new version, %3 the one that runs
    QString text = tr("%1 %2 is available; you have %3.")
                       .arg(product, offer->version, offer->installedVersion);
    if (offer->isCritical) {
        text += u' ' + tr("It closes a dangerous gap: install it soon.");
    }
    if (offer->hasFailedBefore) {
        text +=
            u' ' + tr("It was installed here before but didn’t start, so the previous version was "
                      "brought back.");
    }
    say(offer->isCritical ? tr("An important update is available")
                          : tr("A new version is available"),
        text);

    QString notes = offer->isLoadingNotes
                        ? QStringLiteral("<p>%1</p>").arg(tr("Loading the release notes…"))
                    : offer->notes.isEmpty()
                        ? QStringLiteral("<p>%1</p>").arg(tr("There are no release notes."))
                        : offer->notes;
    if (!offer->notesPage.isEmpty()) {
        notes += QStringLiteral("<p><a href=\"%1\">%2</a></p>")
                     .arg(offer->notesPage.toString(QUrl::FullyEncoded).toHtmlEscaped(),
                          //: a link behind the beginning of the release notes
                          tr("All release notes are on this page."));
    }
    if (notes != shownNotes_) {
        shownNotes_ = notes;
        const bool hasNotes = offer->isLoadingNotes || !offer->notes.isEmpty();
        notes_->setFixedHeight(std::min(hasNotes ? notesHeight : lineHeight,
                                        screen()->availableGeometry().height() / 3));
        notes_->showNotes(notes);
    }
    if (findChild<platform::Button*>() == nullptr) {
        if (!offer->isCritical) {
            addButton(tr("Skip This Version"), Prominence::quiet, context().skip, Place::apart);
        }
        addButton(tr("Remind Me Later"), Prominence::quiet, context().dismiss);
        addButton(tr("Install Update"), Prominence::prominent, context().install);
        // Reading comes first: Return does nothing there.
        notes_->setFocus();
    }
    return true;
}

} // namespace updates
