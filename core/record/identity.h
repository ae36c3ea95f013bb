// Whose model it is, where it lies, and what the program calls itself.
#pragma once

#include <string>

#include "core/number.h"

namespace verlink {

struct Identity {
    std::string FilePath;     ///< full path of the current data file, or the default folder with its separator
    std::string ModelName;    ///< project or file name
    std::string FigureTitle;  ///< one line that describes the model
    std::string UserName;
    Integer DesignNumber = 1;      ///< design revision
    std::string DateStr, TimeStr;  ///< of the model
    std::string Grashof_Code;      ///< "Y", "N", "SC" or "NL"

    std::string ProgramTag;   ///< first line of a model file, "VERLINK"
    std::string ProgramCaps;  ///< the program's name in capitals, for messages
    std::string RevNumber;    ///< "9.0"
    std::string RevDate;      ///< "11/30/08"
    std::string FileVersion;  ///< format of the model file, "2.2"
    std::string TitleSuffix;  ///< the banner behind every screen's caption
    std::string SessionUser;  ///< login name
    std::string RunMarker;    ///< path of the run marker
    std::string AppPath;      ///< the program's folder
    std::string CommandLine;  ///< the model named on the command line, or empty

    std::string FileTag, FileRev, FileFormat;  ///< lines 1, 2 and 54 of the file read last
};

}  // namespace verlink
