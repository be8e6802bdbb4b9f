// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/setup/frmBrawlpad.h"

namespace vorhaven {

void frmBrawlpad::Settle() {
    const Trap trap{"frmBrawlpad::Settle"};
    if (history_.Note(CurrentSetup()))
        liveOdds_.BeginStep();
    ShowState();
    if (const std::string end = lastRun_.TakeAnnouncement(); !end.empty())
        ReadOut.Raise(end + " " + ResultsInWords());
}

void frmBrawlpad::Undo() {
    const Trap trap{"frmBrawlpad::Undo"};
    Settle();
    if (const auto before = history_.Undo())
        GoTo(*before);
}

void frmBrawlpad::Redo() {
    const Trap trap{"frmBrawlpad::Redo"};
    Settle();
    if (const auto after = history_.Redo())
        GoTo(*after);
}

void frmBrawlpad::GoTo(const Setup& setup) {
    PutInPlace(setup);
    // The text may stem from the midst of its typing, and the field will not be left again.
    if (ActiveControl() != &txtNumSimulations)
        txtNumSimulations_LostFocus();
    history_.Correct(CurrentSetup());
    liveOdds_.BeginStep();
    ShowState();
}

} // namespace vorhaven
