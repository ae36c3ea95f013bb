// What is true of the model at the moment.
#pragma once

#include "core/number.h"
#include "core/record/fact.h"

namespace verlink {

struct StatusFlags {
    Fact RunStands;                ///< RunTable is the run of the model as it stands
    Fact Calculated;               ///< the same, and the user has acted on it since
    Fact DynamicsDone;             ///< pin forces and torque exist for these results
    Fact BalanceDone;              ///< balancing results exist for these forces
    Fact FFTDone;                  ///< a Fourier transform of these results exists
    Fact SavedFlag;                ///< the file that `FilePath` names is the model's as it stands
    bool DiskFile = false;         ///< the model came from a file
    bool CamDriven = false;        ///< the motion comes from imported cam data
    bool LinkDriven = false;       ///< the motion comes from imported link data
    bool Synthesized = false;      ///< the present link lengths came from synthesis
    bool TorqueImported = false;   ///< ImportedTorque is in force
    bool NoConnectSeen = false;    ///< some position of the last run did not close
    bool InputScreenOpen = false;  ///< the input screen is up, so `Noconnect` always asks
    bool LinkEdited = false;       ///< a link box was left with a change; the design number is to rise
    bool ScreenReturn = false;     ///< a screen hands control back; the home screen is to refresh
    bool JustStarted = false;      ///< the home screen has not been up yet
    bool CognateEdit = false;      ///< a cognate other than the first is loaded
    bool CognatesDue = true;       ///< `Cognates` are of an earlier linkage; see `Find_Cognates`
    Integer CognateNumber = 1;     ///< 1 to 3
};

}  // namespace verlink
