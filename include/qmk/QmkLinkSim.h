/* QmkLinkSim.h: the scripting interface of the simulated scanner in libQmkLink.
 *
 * The simulator is one scanner per process. Tests and the command-line host use this interface
 * to load sheets, force results and read the journal of every transport call. A real transport
 * doesn't have these functions; nothing in libQmkScan calls them. */
#ifndef QMK_LINK_SIM_H
#define QMK_LINK_SIM_H

#include "QmkScan.h"

QMK_BEGIN_DECLS

/* Back to a fresh scanner: no session, an empty journal and hopper, nothing forced. */
QMK_API void QlkSimReset(void);

/* ---- the journal: one entry per transport call, in order ---- */

QMK_API int QlkSimJournalSize(void);
/* Writes entry `index` as text, e.g. "QlkModeSet(0, 13, 11, 0, 20)". A session argument shows
 * as 0 or "rec", another address as "&". Returns the text's length, or -1 for no such entry. */
QMK_API int QlkSimJournalEntry(int index, char* buffer, int size);
QMK_API void QlkSimJournalClear(void);

/* ---- forced results ---- */

/* From now on the operation named (such as "QlkOpen", "QlkIsScanner", "QlkBarSet") returns
 * `result` for the next `times` calls, or for every call when times is 0. Returns 0, or -1 for a
 * name the transport doesn't have. */
QMK_API int QlkSimForceResult(const char* operation, int result, int times);
QMK_API void QlkSimClearForcedResults(void);

/* ---- the scanner's state ---- */

QMK_API int QlkSimSessionOpen(void);
/* The four values of the last QlkModeSet; returns 0 when none was made. */
QMK_API int QlkSimModes(int modes[4]);
/* The last QlkSetSpectra value, or 0 when none was made. */
QMK_API int QlkSimSpectrum(void);
/* The value last set for a tune parameter; returns 0 when it was never set. */
QMK_API int QlkSimTuneParam(int param, int32_t* value);
/* The port, data bits, stop bits, parity, baud and time-out of the last QlkCommSet. */
QMK_API int QlkSimCommSettings(int* port, int* data_bits, int* stop_bits, int* parity,
                               uint32_t* baud, int* timeout);
/* Text that the next QlkOpen leaves in the new record's bar_code_text, as a transport that
 * reuses its buffers may; null or "" for none. */
QMK_API void QlkSimSetOpenBarCodeText(const char* text);
/* The bar-code port of the last QlkBarSet, -1 when the reader wasn't set up. */
QMK_API int QlkSimBarCodePort(void);

/* ---- sheets ---- */

/* Bytes per line of a simulated sheet's cells. A model delivers the first QlkGetOMRLength(side)
 * bytes of each line (48 on plain mark scanners, 64 on image-reading ones). */
#define QLK_SIM_LINE_BYTES 64
#define QLK_SIM_MAX_LINES (QMK_OMR_BYTES / QLK_SIM_LINE_BYTES)

/* One sheet in the hopper. Cell bytes are one line after the other, QLK_SIM_LINE_BYTES per line;
 * on image-reading models they are the image data that QlkBuildBubbles turns into the record's
 * cells. */
typedef struct qlk_sim_sheet {
  int32_t lines_front;
  int32_t lines_back;
  int32_t thickness;
  uint32_t status1, status2, status3;
  uint32_t jam_detail;
  uint32_t image_flags;
  int32_t skew_hold;
  int32_t not_ready;
  unsigned char sensor_bytes[4];
  char bar_code_text[QMK_BAR_CODE_BYTES];
  const unsigned char* cells_front;   /* lines_front * QLK_SIM_LINE_BYTES bytes, or null */
  const unsigned char* cells_back;    /* lines_back * QLK_SIM_LINE_BYTES bytes, or null */
  /* 0: the cells are bytes as the scanner sends them. 1: they are darkness levels 0 to 15, which
   * the simulator sends as the open model would: '0' + darkness on plain mark scanners, and
   * darkness * 16 + 8 on scanners that read images. */
  int32_t cells_are_darkness;
} qlk_sim_sheet;

/* Adds a sheet at the bottom of the hopper. Returns 0, or -1 when the lines are fewer than 0 or more
 * than QLK_SIM_MAX_LINES. */
QMK_API int QlkSimAddSheet(const qlk_sim_sheet* sheet);
QMK_API int QlkSimHopperCount(void);
/* Sheets sent out as accepted (0), as rejected (1), and sheets taken out of the transport after a
 * jam, which are neither (2). */
QMK_API int QlkSimStackerCount(int stacker);

/* Reads a batch file of sheets (the format is in the README) into the hopper. Returns the number
 * of sheets added, or -1 with a message "line N: ..." in error (size bytes); on an error no
 * sheet of the file is added. */
QMK_API int QlkSimLoadBatch(const char* path, char* error, int size);
/* The same from text in memory. */
QMK_API int QlkSimLoadBatchText(const char* text, int length, char* error, int size);

/* ---- the log ---- */

/* The simulated transport's log record, filled by QlkReadLogData, which also copies the texts
 * of the log's first entry into its two strings (QLK_SIM_LOG_TEXT_BYTES each, when not null). */
#define QLK_SIM_LOG_TEXT_BYTES 128
struct scan_error_log_registry {
  int32_t entries;          /* entries in the log, the host's first entry included */
  int32_t sheets_accepted;
  int32_t sheets_rejected;
  int32_t faults;           /* sheets that went out with a fault in their status words */
};

/* ---- measuring ---- */

/* Functions called on entry to and exit from every transport operation (null for none), so that
 * a benchmark can tell the library's time and allocations from the simulator's. */
typedef void (*qlk_sim_hook)(void);
QMK_API void QlkSimSetCallHooks(qlk_sim_hook enter, qlk_sim_hook leave);
/* Turns the journal off (0) or on (1, the default); a long benchmark needs no record. */
QMK_API void QlkSimSetJournal(int on);

/* Seconds of lamp warm-up that a family-12 scanner needs after open. */
QMK_API void QlkSimSetLampWarmUp(int seconds);
/* Moves the simulator's clock forward. */
QMK_API void QlkSimAdvanceClock(int milliseconds);

QMK_END_DECLS

#endif
