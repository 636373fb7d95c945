// sheet_steps.h: the steps that every sheet read shares: bubbles, accept, copy to the host.
#pragma once

#include "qmk/QmkScan.h"

namespace qmk::scanner {

// Reads the transport's read mode (tune parameter 52).
int ReadMode();
// Builds both sides' cell bytes from the image data.
void ScnBuildBubbleMap(qlkdata_rec* rec, int read_mode);
// Accepts the sheet, the way the scanner's family does it.
void ScnFinishSheet(qlkdata_rec* rec);
// Whether the scanner's cells come from image data.
bool BuildsBubbles(const qlkdata_rec& rec);

// Bytes of one side that hold data: lines times the line length, within the record's array.
int SideBytes(int lines, int length);
// Copies min(buffer_size, lines x length) bytes of each side; a null target is skipped.
void CopyCells(const qlkdata_rec& rec, int buffer_size, char* front, char* back, int front_length,
               int back_length);
// The same with the line lengths asked of the transport.
void CopyCells(const qlkdata_rec& rec, int buffer_size, char* front, char* back);

}  // namespace qmk::scanner
