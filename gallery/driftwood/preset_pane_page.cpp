#include "gallery/driftwood/driftwood_pages.hpp"

#include "driftwood/controls/kestrel_push_button.hpp"
#include "driftwood/controls/styled_segmented_control.hpp"
#include "gallery/driftwood/preset_pane.hpp"
#include "gallery/parts.hpp"

#include <QBoxLayout>
#include <QLabel>
#include <QLocale>

#include <array>

namespace gallery {
namespace {

constexpr std::array<std::size_t, 3> selections{1, 3, 1000};

/// A bank of sounds that agree in some properties and differ in others.
std::vector<Preset> makeBank() {
    constexpr std::array names{"Pad", "Bass", "Lead"};
    std::vector<Preset> bank(selections.back());
    for (std::size_t i = 0; i < bank.size(); ++i) {
        Preset& preset = bank[i];
        const auto part = static_cast<double>(i * 37 % 90);
        preset.constant = names[i % names.size()];
        preset.tune = i < 3 ? driftwood::FieldValue(-12.0) : driftwood::FieldValue("$drift * 2");
        preset.cutoff = i == 0 ? 60 : 5 + part;
        preset.attack = i < 3 ? 20 + 120 * static_cast<double>(i) : part;
        preset.wave = static_cast<int>(i % 4);
        preset.voices = i < 3 ? 1 : static_cast<int>(i % 3);
        preset.category = names[i % names.size()];
        preset.isFavourite = i % 2 == 0;
    }
    return bank;
}

/// The pane, what it edits, and the way back.
class Bank final : public QWidget, public platform::ActionTarget {
  public:
    Bank()
        : edits_(std::make_shared<PresetEdits>(makeBank())),
          which_(new driftwood::StyledSegmentedControl({QStringLiteral("One preset"),
                                                        QStringLiteral("Three"),
                                                        QStringLiteral("All 1,000")})),
          undo_(new driftwood::KestrelPushButton(QStringLiteral("Undo"))),
          report_(makeLabel(QStringLiteral("What is changed is changed in all of them."), 11,
                            "Grey 60%")) {
        edits_->select(selections[1]);
        which_->setAccessibleName(QStringLiteral("Selected presets"));
        which_->setSelectedSegment(1);
        which_->setAction(&Bank::select, *this);
        undo_->setAction(&Bank::undo, *this);
        undo_->setEnabled(false);
        pane_ = new PresetPane(edits_);
        pane_->changed = [this] { report(); };
        auto* const column = new QVBoxLayout(this);
        column->setContentsMargins(0, 0, 0, 0);
        column->addWidget(which_, 0, Qt::AlignHCenter);
        column->addWidget(pane_);
        auto* const foot = new QHBoxLayout;
        foot->addWidget(report_, 1);
        foot->addWidget(undo_);
        column->addLayout(foot);
    }
    ~Bank() override { retire(); }

  private:
    void select(platform::Control&) {
        edits_->select(selections[static_cast<std::size_t>(which_->selectedSegment().value_or(0))]);
        pane_->refresh();
    }
    void undo(platform::Control&) {
        edits_->undo();
        undo_->setEnabled(false);
        pane_->refresh();
        report_->setText(QStringLiteral("As it was before."));
    }
    void report() {
        undo_->setEnabled(edits_->canUndo());
        const auto count = static_cast<int>(edits_->selected().size());
        report_->setText(count == 1 ? QStringLiteral("One preset was changed.")
                                    : QStringLiteral("%1 presets were changed at once.")
                                          .arg(QLocale(QLocale::English).toString(count)));
    }

    std::shared_ptr<PresetEdits> edits_;
    driftwood::StyledSegmentedControl* which_;
    driftwood::KestrelPushButton* undo_;
    QLabel* report_;
    PresetPane* pane_ = nullptr;
};

} // namespace

Page presetPanePage() {
    return {QStringLiteral("preset-pane"), QStringLiteral("Driftwood declarative"),
            QStringLiteral("A preset's properties"),
            QStringLiteral("One, three or a thousand presets edited at once, with one step back."),
            [](QWidget& view) {
                auto* const card = new Card(QStringLiteral("Properties"));
                card->column().addWidget(new Bank);
                view.layout()->addWidget(card);
            }};
}

} // namespace gallery
