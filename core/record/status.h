// What is true of the model at the moment.
#pragma once

#include "core/number.h"

namespace verlink {

struct StatusFlags {
    bool Calculated = false;       ///< RunTable holds results of the present model
    bool DiskFile = false;         ///< the model came from a file
    bool CamDriven = false;        ///< the motion comes from imported cam data
    bool LinkDriven = false;       ///< the motion comes from imported link data
    bool DynamicsDone = false;     ///< pin forces and torque exist for these results
    bool BalanceDone = false;      ///< balancing results exist
    bool FFTDone = false;          ///< a Fourier transform exists
    bool Synthesized = false;      ///< the link lengths came from synthesis
    bool SavedFlag = false;        ///< the model on disk matches memory
    bool TorqueImported = false;   ///< ImportedTorque is in force
    bool NoConnectSeen = false;    ///< some position of the last run did not close
    bool InputScreenOpen = false;  ///< the input screen is up, so `Noconnect` always asks
    bool LinkEdited = false;       ///< a link box was left with a change; the design number is to rise
    bool ScreenReturn = false;     ///< a screen hands control back; the home screen is to refresh
    bool JustStarted = false;      ///< the home screen has not been up yet
    bool CognateEdit = false;      ///< a cognate other than the first is loaded
    Integer CognateNumber = 1;     ///< 1 to 3
};

}  // namespace verlink
