/* QmkLink.h: the scanner transport. Every operation that QmkScan calls, with its arguments as
 * passed. The session argument is 0 (the open session) or the session record. The simulated
 * scanner implements this interface; a real transport with the same ABI replaces it at load
 * time (see the README). */
#ifndef QMK_LINK_H
#define QMK_LINK_H

#include "QmkScan.h"

QMK_BEGIN_DECLS

/* Session and identity. */
QMK_API int QlkOpen(feat_mask* feat, qlkdata_rec** rec);
QMK_API int QlkClose(qlkdata_rec* rec);
QMK_API int QlkCommSet(qlkdata_rec* session, int port, int data_bits, int stop_bits, char parity,
                       uint32_t baud, int timeout);
QMK_API int QlkModeSet(qlkdata_rec* session, int mode1, int mode2, int mode3, int mode4);
QMK_API int QlkControl(qlkdata_rec* session, int code);
QMK_API int QlkSetRead(qlkdata_rec* session, int a, int b, int c, int d, int e);
QMK_API int QlkThickSet(qlkdata_rec* session, int low, int high);
QMK_API int QlkSetSpectra(qlkdata_rec* session, int spectrum);
QMK_API int QlkSetTuneParams(qlkdata_rec* session, int param, int value);
QMK_API int QlkGetTuneParams(qlkdata_rec* session, int param, int32_t* value, int a, int b);
QMK_API int QlkIsScanner(qlkdata_rec* session);
QMK_API int QlkSetBarCodeDelay(qlkdata_rec* session, bar_code_delay_t* delay);
QMK_API int QlkBarSet(qlkdata_rec* session, int code, int port);
QMK_API int AdaptiveDetect(unsigned char detect, int* first, int* second, int a, int b);
QMK_API int QlkRemainingLampWarmUpTime(qlkdata_rec* session);

/* Sheet reading. */
QMK_API int QlkPick(qlkdata_rec* session, int a);
QMK_API int QlkWaitEndOp(qlkdata_rec* session);
QMK_API int QlkStatus(qlkdata_rec* session);
QMK_API int QlkGetMaxCell(int side);
QMK_API int QlkGetOMRLength(int side);
QMK_API int QlkImgVal(unsigned char cell, uint32_t feat);
QMK_API int QlkBuildBubbles(qlkdata_rec* session, int a, int first_row, int b, int c, int columns,
                            int last_row, int kind);
QMK_API int QlkFlush(qlkdata_rec* session, int code);
QMK_API int DrlReadBar(qlkdata_rec* session);

/* Log and device questions. */
QMK_API int QlkReadLogData(scan_error_log_registry* log, char* first, char* second);
QMK_API int QlkResetLog(qlkdata_rec* session);
QMK_API int QlkWriteLog(qlkdata_rec* session, const char* first, const char* second);
QMK_API int QlkDetectTwainScanner(int model);
QMK_API int CheckUSB(int* first, int* second, int* third, int* fourth);

QMK_END_DECLS

/* Control codes of QlkControl and flush codes of QlkFlush. */
#define QLK_CONTROL_READY 22
#define QLK_CONTROL_STOP 23
#define QLK_CONTROL_ACCEPT 24
#define QLK_CONTROL_REJECT 25
#define QLK_CONTROL_PADLOT_PREPARE 31
#define QLK_CONTROL_PADLOT_FIRMWARE 34
#define QLK_FLUSH_ACCEPT 24
#define QLK_FLUSH_REJECT 25

/* Tune parameters of QlkSetTuneParams and QlkGetTuneParams. 24, 30, 42 and 56 are passed with
 * the record as the session argument, the others with 0. */
#define QLK_TUNE_LEAD_EDGE 1
#define QLK_TUNE_P2 2
#define QLK_TUNE_P3 3
#define QLK_TUNE_P5 5
#define QLK_TUNE_P7 7
#define QLK_TUNE_P8 8
#define QLK_TUNE_READ_LEVEL 24    /* the host's read level plus 1, before image reads */
#define QLK_TUNE_IMAGE_BYTE 30    /* the host's byte in ScnSetScannerMode, image readers */
#define QLK_TUNE_SPECTRUM 35      /* 16 at open of plain readers; 16, 32 or -1 later */
#define QLK_TUNE_PICK_PREPARE 42  /* 1 before every pick */
#define QLK_TUNE_TWAIN_OPEN 44    /* 1 at the open of family 12 */
#define QLK_TUNE_READ_MODE 52
#define QLK_TUNE_IMAGE_PATH 56    /* the host's byte in ScnSetScannerMode, image path */

/* Mode words of QlkModeSet, named by where the library sends them. Open: 13, 11, 0, 20 on the
 * serial mark readers (families 2 and 5, family 4 models 3 and 4); 28, 0, 0, 0 on the other
 * family 4 models; 19, 28, 0, 0 on family 3. ScnSetScannerMode on family 3: 19 (or 13 when the
 * host's flag is set), 28, 0, 20. */
#define QLK_MODE_SERIAL_FIRST 13
#define QLK_MODE_SERIAL_SECOND 11
#define QLK_MODE_PLAIN 28
#define QLK_MODE_FAMILY3_FIRST 19
#define QLK_MODE_FOURTH 20

/* Results that the library tells apart. */
#define QLK_PICK_LAMPS_WARMING (-13)

#endif
