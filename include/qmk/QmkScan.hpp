/* QmkScan.hpp: the exports whose arguments are C++ types. Each has a C form in QmkScan.h. */
#ifndef QMK_SCAN_HPP
#define QMK_SCAN_HPP

#include <string>
#include <vector>

#include "QmkScan.h"

/* C linkage keeps the plain names in the library's symbol table; the arguments are C++. */
extern "C" {

/* Fills `ports` with the machine's serial ports. With check_open non-zero, a port that can't be
 * opened now, such as one held by another program, is left out. A failure of the system's device
 * listing is thrown as a std::string, such as "SetupDiGetClassDevs failed. (err=2)". */
QMK_API void ScnEnumSerialPorts(std::vector<SSerInfo>& ports, int check_open);

/* The display name of a scanner, at most 99 characters; "UNKNOWN" for a word no model has.
 * firmware, when not null, is appended to the PadLot model's name with a label. */
QMK_API void ScnGetScannerName(feat_mask& feat, std::string& name, const char* firmware);
}

#endif
