/* QmkScan.h: the records that cross the QmkScan exports, and the exports themselves (C linkage).
 *
 * Every record is a plain C structure. Sizes and field offsets are fixed for x86-64 and other
 * LP64 targets and pinned by static assertions at the end of this header, so that a host built
 * with another compiler sees the same layout. */
#ifndef QMK_SCAN_H
#define QMK_SCAN_H

#include <stddef.h>
#include <stdint.h>

#include "QmkTypes.h"

/* ---- feat_mask: the scanner's identity word -------------------------------------------- */

/* The bits of the one 32-bit word, from bit 0 up. Bits 12 to 15 are written by the
 * configuration dialog's save (12: 0, 13 and 14: 1, 15: 1 except for models 500 and 517). */
typedef struct feat_mask {
  uint32_t family : 4;            /* bits 0-3: driver family; 0 = no scanner configured */
  uint32_t model_code : 4;        /* bits 4-7: model within the family */
  uint32_t select_stacker : 1;    /* bit 8: first select stacker fitted */
  uint32_t second_stacker : 1;    /* bit 9: second select stacker fitted */
  uint32_t transport_printer : 1; /* bit 10: transport printer fitted */
  uint32_t bar_code_reader : 1;   /* bit 11: bar-code reader attached */
  uint32_t save_bit12 : 1;        /* bit 12 */
  uint32_t save_bit13 : 1;        /* bit 13 */
  uint32_t save_bit14 : 1;        /* bit 14 */
  uint32_t save_bit15 : 1;        /* bit 15 */
  uint32_t series : 4;            /* bits 16-19: product series (0, 1, 2, 5, 12) */
  uint32_t submodel : 2;          /* bits 20-21: variant within a model */
  uint32_t image_read : 1;        /* bit 22: cells are built from image data */
  uint32_t unused : 9;            /* bits 23-31 */
} feat_mask;

/* The same fields read from a copied word, such as qlkdata_rec.feat. */
#define QMK_FEAT_FAMILY(w) ((unsigned)(w) & 0xFu)
#define QMK_FEAT_MODEL_CODE(w) (((unsigned)(w) >> 4) & 0xFu)
#define QMK_FEAT_SELECT_STACKER(w) (((unsigned)(w) >> 8) & 1u)
#define QMK_FEAT_SECOND_STACKER(w) (((unsigned)(w) >> 9) & 1u)
#define QMK_FEAT_TRANSPORT_PRINTER(w) (((unsigned)(w) >> 10) & 1u)
#define QMK_FEAT_BAR_CODE_READER(w) (((unsigned)(w) >> 11) & 1u)
#define QMK_FEAT_SERIES(w) (((unsigned)(w) >> 16) & 0xFu)
#define QMK_FEAT_SUBMODEL(w) (((unsigned)(w) >> 20) & 0x3u)
#define QMK_FEAT_IMAGE_READ(w) (((unsigned)(w) >> 22) & 1u)

/* ---- sct_config and sct_config_ex: the host's scanner configuration ------------------------ */

/* Bytes of host data in front of the scanner fields. The host keeps its data file folder in the
 * first QMK_PATH_BYTES of them; the library never touches this portion. */
#define QMK_SCT_HOST_BYTES 512
#define QMK_PATH_BYTES 260

/* The bar-code timing block that the host's configuration writes and the transport reads. */
typedef struct bar_code_delay_t {
  int32_t delay_ms;
  int32_t flags;
} bar_code_delay_t;

typedef struct sct_config {
  unsigned char host_portion[QMK_SCT_HOST_BYTES];
  struct feat_mask feat_mask;
  int16_t op_log;                 /* > 0: "Write Operations Log" is on */
  bar_code_delay_t bar_code_delay;
  int16_t bar_code_port;
  int32_t lead_edge_tol;          /* tune parameter 1 */
  int32_t tune_p2;                /* default 16 */
  int32_t tune_p5;                /* default 90 */
  int32_t tune_p8;                /* default 90 */
  int32_t tune_p3;                /* default 8 */
  int32_t tune_p7;                /* default 7 */
  int32_t limit_a;                /* default 2030 */
  int32_t limit_b;                /* default 2030 */
} sct_config;

/* Port numbers that are no COM ports. */
#define QMK_PORT_NONE 0
#define QMK_PORT_USB 2048
#define QMK_PORT_TWAIN 4096

typedef struct sct_config_ex {
  uint32_t baud;
  int16_t parity;                 /* 'E', 'O' or 'N' */
  int16_t data_bits;              /* 7 or 8 */
  int16_t stop_bits;              /* 1 or 2 */
  int16_t port;                   /* COM number, QMK_PORT_USB, QMK_PORT_TWAIN or 0 */
  int16_t timeout;                /* seconds, 2 to 60 */
  int16_t aux_port;
} sct_config_ex;

/* ---- qlkdata_rec: one open session --------------------------------------------------------- */

#define QMK_OMR_BYTES 10000
#define QMK_BAR_CODE_BYTES 200

typedef struct qlkdata_rec {
  uint32_t feat;                  /* copy of the feat_mask word */
  uint32_t status1;               /* sheet and transport status */
  uint32_t status2;               /* form and sequence status */
  uint32_t status3;               /* hopper and drive status; bit 0: input hopper empty */
  uint32_t jam_detail;            /* jam location bits, with bit 3 of status1 */
  uint32_t image_flags;
  int32_t skew_hold;
  int32_t not_ready;
  int32_t sheet_read;             /* non-zero: a sheet's data arrived */
  int32_t lines_front;
  int32_t lines_back;
  int32_t thickness;
  unsigned char omr_front[QMK_OMR_BYTES];
  unsigned char omr_back[QMK_OMR_BYTES];
  char bar_code_text[QMK_BAR_CODE_BYTES];
  unsigned char sensor_bytes[4];
} qlkdata_rec;

/* ---- sht_desc: the expected sheet ------------------------------------------------------------ */

#define QMK_MAX_FORM_ID_MARKS 48
#define QMK_MAX_SKEW_MARKS 255 /* as many as skew_mark_count can count */
#define QMK_SHT_HOST_BYTES 256

typedef struct sht_desc {
  int32_t id_lines_front;         /* 0: no check */
  int32_t id_lines_back;          /* 0: no check */
  int32_t id_mark_col[QMK_MAX_FORM_ID_MARKS];   /* 1-based; 0 ends the list */
  int32_t id_mark_row[QMK_MAX_FORM_ID_MARKS];   /* 1-based; bit 7 set: back side */
  uint8_t id_mark_sense[QMK_MAX_FORM_ID_MARKS]; /* 0: marked, 1: empty, other: ignored */
  int32_t thick_min;
  int32_t thick_max;              /* 0 switches the thickness check off */
  uint8_t skew_mark_count;
  uint8_t skew_marks[QMK_MAX_SKEW_MARKS][2];    /* column, then row (bit 7: back side) */
  int32_t solid_row;              /* 1-based, 0 for none */
  unsigned char host_portion[QMK_SHT_HOST_BYTES];
} sht_desc;

/* ---- the scanner log and the serial port list ------------------------------------------------ */

/* The transport's log record. Its contents are the transport's; the library passes its address. */
typedef struct scan_error_log_registry scan_error_log_registry;

#define QMK_SER_TEXT_BYTES 260

typedef struct SSerInfo {
  char device_path[QMK_SER_TEXT_BYTES];
  char port_name[QMK_SER_TEXT_BYTES];       /* such as "COM3" */
  char friendly_name[QMK_SER_TEXT_BYTES];
  int32_t is_usb;
  char description[QMK_SER_TEXT_BYTES];
} SSerInfo;

/* ---- build_data: the host's job options ------------------------------------------------------ */

/* Bits of build_data.autoNameFlags: one reset rule, and the batch flag. */
#define QMK_AUTONAME_NEVER_RESET 0x01
#define QMK_AUTONAME_RESET_DAILY 0x02
#define QMK_AUTONAME_RESET_WEEKLY 0x04
#define QMK_AUTONAME_RESET_MONTHLY 0x08
#define QMK_AUTONAME_USE_AS_BATCH 0x10

/* Bits of build_data.fileOptionFlags. */
#define QMK_FILEOPT_AUTONAME 0x10            /* data file names are generated */
#define QMK_FILEOPT_DEFAULT_CONVERSION 0x20  /* the default conversion output name is used */

/* Bits of build_data.printFlags. */
#define QMK_PRINT_SERIAL 0x01
#define QMK_PRINT_BATCH 0x02
#define QMK_PRINT_RUN 0x04
#define QMK_PRINT_SCAN_DATE 0x08
#define QMK_PRINT_OFFSET_EDIT 0x10
#define QMK_PRINT_FOUR_DIGIT_YEAR 0x20

/* Bits of build_data.stopFlags. */
#define QMK_STOP_LITHO_CODE 0x01
#define QMK_STOP_SYSTEM 0x02
#define QMK_STOP_THICKNESS 0x04

/* Size of the host's name buffers, and of every name the library writes for it. */
#define QMK_NAME_BYTES 260

/* The job options record. Text fields are zero-ended. The reserved runs belong to the host and
 * are carried along unchanged. */
typedef struct build_data {
  int16_t formNumber;                 /* number of the form; names the auto-naming context */
  char dataFileName[1040];            /* name of the data file, with the space behind it */
  char autoNameTemplate[QMK_NAME_BYTES];
  unsigned char reserved1[780];
  char scanConversionFileName[QMK_NAME_BYTES];
  char serialNumberText[7];           /* starting serial number, decimal */
  char batchNumberText[4];            /* batch number, decimal */
  char scanDateText[12];              /* normalised scan date; empty means today */
  char runNumberText[2];              /* run number, one digit */
  unsigned char reserved2[1];
  uint16_t fileOptionFlags;           /* QMK_FILEOPT_* */
  unsigned char reserved3[2];
  int32_t bubbleThreshold;
  int32_t bubbleDiscrimination;
  int32_t checkThreshold;
  int32_t checkDiscrimination;
  int32_t tickThreshold;
  int32_t tickDiscrimination;
  uint16_t printFlags;                /* QMK_PRINT_* */
  int16_t printPosition;              /* 1 to 63 */
  int16_t dataFileMode;               /* 0 append, 1 replace, 2 replace at serial number */
  uint16_t stopFlags;                 /* QMK_STOP_* */
  uint8_t autoNameFlags;              /* QMK_AUTONAME_* */
  unsigned char reserved4[1];
  int16_t autoNameSequence;           /* last number used; 0: the next name takes 1 */
  uint8_t autoNameResetMonth;         /* month 1 to 12 of the last reset */
  uint8_t autoNameResetDay;           /* day of the month of the last reset */
  unsigned char reserved5[520];
  char postScanConversionFileName[QMK_NAME_BYTES];
  uint16_t conversionFlags;
  uint16_t conversionReplaceExisting;
  unsigned char reserved6[528];
  uint16_t editMode;
  unsigned char reserved7[788];
  int32_t onlineEditCorrection;       /* non-zero: online edit correction while scanning */
  unsigned char reserved8[524];
  uint8_t contextFileInUse;           /* non-zero: the naming sequence is kept in the settings */
  unsigned char reserved9[259];
} build_data;

/* ---- result codes ---------------------------------------------------------------------------- */

/* Scan calls. */
#define QMK_SCAN_DONE 0
#define QMK_SCAN_NO_TIMING_MARKS 1
#define QMK_SCAN_STOPPED 7

/* Written to ScnInitializeScanner's error when the host passed a null sct_config or
 * sct_config_ex: no transport call was made. */
#define QMK_ERROR_NULL_ARGUMENT 9001

/* ---- exports --------------------------------------------------------------------------------- */

QMK_BEGIN_DECLS

/* Opens the one scanner session. Returns the record, or null with a code in *error (error may be
 * null). A null record may come with code 0: test the record, not the code. A non-null record
 * with a non-zero code is a working session with a bar-code warning (1083 or 1098). */
QMK_API qlkdata_rec* ScnInitializeScanner(QMK_HWND parent, sct_config* cfg, sct_config_ex* comm,
                                          int* error);

/* Sets the reading mode. spectrum: 0 = 16, 1 = 32, other = -1. Returns 1 on plain mark scanners,
 * otherwise the adaptive detection's result; -1 for a null record. */
QMK_API int ScnSetScannerMode(qlkdata_rec* rec, int spectrum, int mode_flag, int read_mode,
                              unsigned char level, unsigned char detect);

/* Ends the session and releases the record. A null record is ignored. */
QMK_API void ScnScanTerm(qlkdata_rec* rec);

/* Reads one sheet's mark cells. Zeroes buffer_size bytes of front and back, then copies each
 * side's lines (line i at i times the side's OMR length) and reports the cells per line and the
 * line lengths. Returns 0 (sheet done; a blank sheet copies nothing) or 7 (the operator stopped,
 * or the hopper is empty and stop_on_empty is set). A null record returns 7 at once. */
QMK_API int ScnScanForOMR(QMK_HWND parent, qlkdata_rec* rec, int stop_on_empty, int buffer_size,
                          char* front, char* back, int* max_cell_front, int* max_cell_back,
                          int* omr_length_front, int* omr_length_back);

/* Copies the last bar-code text into text (size bytes, zero-ended). Returns the transport's
 * result; on a failure text is left alone. -1 for a null record. */
QMK_API int ScnReadBarcodeBuffer(qlkdata_rec* rec, int size, char* text);

/* Reads a sheet and checks it against desc before handing over its cells. Returns 0, 1 (a blank
 * sheet where require_marks asks for timing marks) or 7. Null record or desc: 7 at once. */
QMK_API int ScnScanForImage(QMK_HWND parent, qlkdata_rec* rec, sht_desc* desc, int read_level,
                            char* front, char* back, int buffer_size, int require_marks);

/* Reads a sample sheet and fills desc: line counts, thickness window, form-ID marks, solid row.
 * back may be null. Returns 0, 1 (blank sheet with read_level above 0) or 7. */
QMK_API int ScnScanToDefineFormIds(QMK_HWND parent, qlkdata_rec* rec, sht_desc* desc,
                                   int read_level, char* front, char* back, int buffer_size,
                                   int front_only, int first_line, int last_line,
                                   int stop_on_empty);

/* The scanner's own log, through the transport. A reset makes the host's two texts the log's
 * new first entry. */
QMK_API int ScnGetScannerErrorLog(scan_error_log_registry* log, char* first, char* second);
QMK_API int ScnResetScannerErrorLog(char* first, char* second);

/* Expands record->autoNameTemplate into out_name (at least QMK_NAME_BYTES bytes; never more are
 * written). With commit non-zero the sequence is taken: the record, batch number and, for a
 * record with contextFileInUse, the settings store are updated. Returns 1 when a commit wrapped
 * the sequence and said so, else 0. */
QMK_API int ScnMakeAutoName(QMK_HWND owner, const char* data_path, char* out_name,
                            build_data* record, int commit);

/* The option dialogs. Each works on a copy and writes *record only when the operator presses OK;
 * it returns 1 then, and 0 on Cancel (and for a null record, without a dialog). */

/* The scanning options dialog: file names, batch data, stop conditions, read levels and
 * transport printing. C++ hosts pass the configuration by reference, C hosts its address.
 * read_level 1 offers no read parameters, 2 numbers, any other named levels. The last three
 * arguments are accepted and not used: the dialog has no parent and its help id is 2004. */
#if defined(__cplusplus)
#define QMK_SCT_CONFIG_REF sct_config&
#define QMK_SCT_CONFIG_ADDRESS(ref) (&(ref))
#else
#define QMK_SCT_CONFIG_REF sct_config*
#define QMK_SCT_CONFIG_ADDRESS(ref) (ref)
#endif
QMK_API int ScnSetScanOptions(build_data* record, QMK_SCT_CONFIG_REF config, int read_level,
                              unsigned reserved1, QMK_HWND reserved2, unsigned reserved3);

/* The conversion options dialog (the output file of the conversion after scanning) and the edit
 * options dialog (how the next edit pass treats the records). help_id becomes the dialog's help
 * context, parent its parent window (may be null). */
QMK_API int ScnSetConversionOptions(build_data* record, unsigned help_id, QMK_HWND parent);
QMK_API int ScnSetEditOptions(build_data* record, unsigned help_id, QMK_HWND parent);

/* ---- the operator: how the library asks a person ---------------------------------------------
 * A host that answers faults and waits itself (a service without a terminal, a program with its
 * own windows) installs its callbacks here. Without one the library's own dialogs answer once
 * they stand; until then the terminal answers when standard input is one, and otherwise a fault
 * is answered Cancel (the scan call returns 7) and the trace says why. */
typedef struct ScnOperator {
  /* sizeof(ScnOperator) as the host was built: later versions only append members. */
  unsigned size;
  /* Handed back unchanged to every callback. */
  void* context;
  /* Required. A message box: returns the pressed button's id (1 OK, 2 Cancel, 3 Abort,
   * 4 Retry, 5 Ignore, 6 Yes, 7 No). flags hold the button set in the low four bits and the
   * icon in bits 4 to 7, as the platform's message box takes them. */
  int (*message_box)(void* context, QMK_HWND parent, const char* text, const char* caption,
                     unsigned flags, int help_id);
  /* Required. The faults of one failed sheet, with the scan error dialog's fixed texts: title,
   * heading above the list and advice below it. Returns 1 to read the sheet again, 2 to stop. */
  int (*fault_list)(void* context, const char* title, const char* heading,
                    const char* const* faults, int count, const char* advice);
  /* Optional, all four or none. A modeless notice with an optional Cancel button (connection
   * and lamp warm-up waits): made hidden, then shown, its text changed while it stands, asked
   * whether Cancel was pressed, and destroyed. notice_create may return null: no notice. */
  void* (*notice_create)(void* context, QMK_HWND parent, const char* text, int show_cancel);
  void (*notice_text)(void* context, void* notice, const char* text);
  void (*notice_show)(void* context, void* notice, int visible);
  int (*notice_cancelled)(void* context, void* notice);
  void (*notice_destroy)(void* context, void* notice);
  /* Optional. The library disables the parent window while a wait notice stands. */
  void (*enable_window)(void* context, QMK_HWND window, int enabled);
  /* Optional. Called while the library waits, so that the host's input (a Cancel press) is
   * seen. */
  void (*pump)(void* context);
} ScnOperator;

/* Installs a copy of *op; null puts the default back. Returns 0, QMK_ERROR_NULL_ARGUMENT when a
 * required callback is missing, or QMK_ERROR_BAD_OPERATOR when size is too small or only some of
 * the notice callbacks are given; a refused operator changes nothing. */
QMK_API int ScnSetOperator(const ScnOperator* op);
#define QMK_ERROR_BAD_OPERATOR 9002

/* Selects the theme that every widget of the library draws with, by its id (0 is the plain
 * theme), and passes the id on to the recognition library unchanged. Takes effect when a window
 * next paints; may be called at any time. */
QMK_API void ScnSetPaintManager(int theme_id);

/* Makes the library's dialogs transient for a host's GTK window (a GtkWindow*; null ends it),
 * so they stay above it and are centred on it. Returns 1 when the GTK back end took the window,
 * 0 when the library runs without a display (headless) or gtk_window is not a GtkWindow. */
QMK_API int ScnSetParentGtkWindow(void* gtk_window);

/* Forwarders to the recognition library. */
QMK_API void ScnShowOptionalComponents(void);
QMK_API int ScnOptionalComponentCount(void);

/* ---- discovery: ports, serial probes and scanner identity ------------------------------------ */

/* Forwards to the transport's USB check: non-zero when a USB scanner answered. a: it returns
 * images; b: model code 5 (else 7); c: bar-code option fitted; d: printer option fitted. */
QMK_API int ScnCheckUSB(int* a, int* b, int* c, int* d);

/* Loads the name of TWAIN model 12 or 13 into name (260 bytes) and returns the text loader's
 * result; returns -1 and leaves name alone for any other model code. */
QMK_API int ScnTwainGetModel(int model_code, char* name);

/* 1 when a scanner on the port (a name such as "COM3" or "\\.\COM12") answers the status query
 * at one of the probe's settings, else 0. */
QMK_API int ScnCheckForNonPadLot(const char* port);

/* 1 when a PadLot scanner answers on the port, else 0. */
QMK_API int ScnIsPadLotScannerPresentOnPort(const char* port);

/* Writes the fixed configuration of a PadLot scanner on COM port `port`. */
QMK_API void ScnSetCfigWithPadLotInfo(int port, sct_config* cfg, sct_config_ex* comm);

/* Shows the scanner configuration dialog over the host's records and returns its result: 1 OK,
 * 2 Cancel, -1 when cfg or comm is null or the dialog can't be shown. Its three hardware
 * checkboxes and the port reach the records at once, and stay changed on Cancel. On OK each
 * non-null pointer gets its value: tested 1 when Auto Configure found the scanner; each of the
 * three states 1 when the dialog's state of that option isn't 0, else 0. help_id 0 stands for
 * 2000; the parent is not used. */
QMK_API int ScnScannerConfig(QMK_HWND parent, sct_config* cfg, sct_config_ex* comm,
                             unsigned help_id, int* tested, int* select_state, int* printer_state,
                             int* bar_code_state);

/* 12 for family 12, else 8. */
QMK_API int ScnGetDefaultLeadEdgeTol(int family);

/* The self-score threshold kept by the scanner: 0 to 9, -1 when the scanner has none, -2 when
 * it couldn't be read. */
QMK_API int ScnGetSelfScoreScannerThreshold(sct_config* cfg, sct_config_ex* comm);

/* C forms of the two exports of QmkScan.hpp. */

#define QMK_ENUM_OK 0
#define QMK_ENUM_FAILED 1      /* the error text is in `error` */
#define QMK_ENUM_TOO_SMALL 2   /* *count says how many elements there are; the first capacity are filled */
#define QMK_ENUM_BAD_ARGUMENT 3

/* Enumerates the serial ports into ports[0 .. capacity-1] and their number into *count. */
QMK_API int ScnEnumSerialPortsC(SSerInfo* ports, int capacity, int check_open, int* count,
                                char* error, int error_size);

/* Writes the display name into name (size bytes, zero-ended, cut if needed; 100 is always
 * enough). Returns the name's full length, or -1 for a null feat or name. */
QMK_API int ScnGetScannerNameC(const feat_mask* feat, char* name, int size, const char* firmware);

QMK_END_DECLS

/* ---- layout pins (LP64) ---------------------------------------------------------------------- */

#if defined(__cplusplus)
#define QMK_STATIC_ASSERT static_assert
#else
#define QMK_STATIC_ASSERT _Static_assert
#endif

QMK_STATIC_ASSERT(sizeof(feat_mask) == 4, "feat_mask is one word");
QMK_STATIC_ASSERT(offsetof(sct_config, feat_mask) == 512, "sct_config layout");
QMK_STATIC_ASSERT(offsetof(sct_config, op_log) == 516, "sct_config layout");
QMK_STATIC_ASSERT(offsetof(sct_config, bar_code_delay) == 520, "sct_config layout");
QMK_STATIC_ASSERT(offsetof(sct_config, bar_code_port) == 528, "sct_config layout");
QMK_STATIC_ASSERT(offsetof(sct_config, lead_edge_tol) == 532, "sct_config layout");
QMK_STATIC_ASSERT(offsetof(sct_config, limit_b) == 560, "sct_config layout");
QMK_STATIC_ASSERT(sizeof(sct_config) == 564, "sct_config layout");
QMK_STATIC_ASSERT(offsetof(sct_config_ex, parity) == 4, "sct_config_ex layout");
QMK_STATIC_ASSERT(offsetof(sct_config_ex, port) == 10, "sct_config_ex layout");
QMK_STATIC_ASSERT(offsetof(sct_config_ex, aux_port) == 14, "sct_config_ex layout");
QMK_STATIC_ASSERT(sizeof(sct_config_ex) == 16, "sct_config_ex layout");
QMK_STATIC_ASSERT(offsetof(qlkdata_rec, thickness) == 44, "qlkdata_rec layout");
QMK_STATIC_ASSERT(offsetof(qlkdata_rec, omr_front) == 48, "qlkdata_rec layout");
QMK_STATIC_ASSERT(offsetof(qlkdata_rec, omr_back) == 10048, "qlkdata_rec layout");
QMK_STATIC_ASSERT(offsetof(qlkdata_rec, bar_code_text) == 20048, "qlkdata_rec layout");
QMK_STATIC_ASSERT(offsetof(qlkdata_rec, sensor_bytes) == 20248, "qlkdata_rec layout");
QMK_STATIC_ASSERT(sizeof(qlkdata_rec) == 20252, "qlkdata_rec layout");
QMK_STATIC_ASSERT(offsetof(sht_desc, id_mark_col) == 8, "sht_desc layout");
QMK_STATIC_ASSERT(offsetof(sht_desc, id_mark_row) == 200, "sht_desc layout");
QMK_STATIC_ASSERT(offsetof(sht_desc, id_mark_sense) == 392, "sht_desc layout");
QMK_STATIC_ASSERT(offsetof(sht_desc, thick_min) == 440, "sht_desc layout");
QMK_STATIC_ASSERT(offsetof(sht_desc, skew_mark_count) == 448, "sht_desc layout");
QMK_STATIC_ASSERT(offsetof(sht_desc, skew_marks) == 449, "sht_desc layout");
QMK_STATIC_ASSERT(offsetof(sht_desc, solid_row) == 960, "sht_desc layout");
QMK_STATIC_ASSERT(sizeof(sht_desc) == 1220, "sht_desc layout");
QMK_STATIC_ASSERT(offsetof(SSerInfo, is_usb) == 780, "SSerInfo layout");
QMK_STATIC_ASSERT(sizeof(SSerInfo) == 1044, "SSerInfo layout");
QMK_STATIC_ASSERT(offsetof(build_data, dataFileName) == 2, "build_data layout");
QMK_STATIC_ASSERT(offsetof(build_data, autoNameTemplate) == 1042, "build_data layout");
QMK_STATIC_ASSERT(offsetof(build_data, scanConversionFileName) == 2082, "build_data layout");
QMK_STATIC_ASSERT(offsetof(build_data, serialNumberText) == 2342, "build_data layout");
QMK_STATIC_ASSERT(offsetof(build_data, batchNumberText) == 2349, "build_data layout");
QMK_STATIC_ASSERT(offsetof(build_data, scanDateText) == 2353, "build_data layout");
QMK_STATIC_ASSERT(offsetof(build_data, runNumberText) == 2365, "build_data layout");
QMK_STATIC_ASSERT(offsetof(build_data, fileOptionFlags) == 2368, "build_data layout");
QMK_STATIC_ASSERT(offsetof(build_data, bubbleThreshold) == 2372, "build_data layout");
QMK_STATIC_ASSERT(offsetof(build_data, tickDiscrimination) == 2392, "build_data layout");
QMK_STATIC_ASSERT(offsetof(build_data, printFlags) == 2396, "build_data layout");
QMK_STATIC_ASSERT(offsetof(build_data, stopFlags) == 2402, "build_data layout");
QMK_STATIC_ASSERT(offsetof(build_data, autoNameFlags) == 2404, "build_data layout");
QMK_STATIC_ASSERT(offsetof(build_data, autoNameSequence) == 2406, "build_data layout");
QMK_STATIC_ASSERT(offsetof(build_data, autoNameResetMonth) == 2408, "build_data layout");
QMK_STATIC_ASSERT(offsetof(build_data, autoNameResetDay) == 2409, "build_data layout");
QMK_STATIC_ASSERT(offsetof(build_data, postScanConversionFileName) == 2930, "build_data layout");
QMK_STATIC_ASSERT(offsetof(build_data, conversionFlags) == 3190, "build_data layout");
QMK_STATIC_ASSERT(offsetof(build_data, conversionReplaceExisting) == 3192, "build_data layout");
QMK_STATIC_ASSERT(offsetof(build_data, editMode) == 3722, "build_data layout");
QMK_STATIC_ASSERT(offsetof(build_data, onlineEditCorrection) == 4512, "build_data layout");
QMK_STATIC_ASSERT(offsetof(build_data, contextFileInUse) == 5040, "build_data layout");
QMK_STATIC_ASSERT(sizeof(build_data) == 5300, "build_data layout");

#endif
