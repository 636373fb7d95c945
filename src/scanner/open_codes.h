// open_codes.h: the host's error codes for the transport's results at session open.
#pragma once

namespace qmk::scanner {

// QlkOpen's result to the code that ScnInitializeScanner reports. `series` picks the fall-back.
int MapOpenResult(int result, unsigned series);
// QlkCommSet's failure to its code.
int MapCommSetResult(int result);
// QlkIsScanner's failure to its code; 0 for results that have none.
int MapPresenceResult(int result);
// QlkBarSet's result to a warning code; 0 when there is no warning.
int MapBarSetResult(int result);

}  // namespace qmk::scanner
