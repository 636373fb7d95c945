// scan_error_texts.h: the fixed texts of the scan error dialog, which every operator shows
// around the fault list of a failed sheet.
#pragma once

namespace qmk::frame {

inline constexpr char kScanErrorTitle[] = "Scan Error";
inline constexpr char kScanErrorHeading[] = "The Following Errors Occurred:";
// The two blanks after the first sentence belong to the text.
inline constexpr char kScanErrorAdvice[] =
    "Correct conditions described above and rescan sheet if necessary.  Make sure you are "
    "scanning the proper sheet.";

}  // namespace qmk::frame
