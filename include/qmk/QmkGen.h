/* QmkGen.h: the common services that QmkScan uses: texts, trace and help ids. */
#ifndef QMK_GEN_H
#define QMK_GEN_H

#include "QmkTypes.h"

QMK_BEGIN_DECLS

/* Copies text `id` of the common services into buffer (at most size - 1 bytes, zero-ended).
 * instance is null for the common library's own texts. Returns the length copied, 0 when the
 * text doesn't exist (the buffer then holds an empty text). */
QMK_API int GenLoadText(void* instance, int id, char* buffer, int size);

/* Writes one trace line "title: formatted text" to stderr when QMK_TRACE is set. */
QMK_API void GenTraceDebugFormatted(const char* title, const char* format, ...)
#if defined(__GNUC__)
    __attribute__((format(printf, 2, 3)))
#endif
    ;

/* The current help context id, and its setter, which returns the id that was current. */
QMK_API int GenGetHelpId(void);
QMK_API int GenSetHelpId(int id);

/* Name of the host's main module, or null when the host set none. */
QMK_API const char* GenGetMainAppModuleName(void);
QMK_API void GenSetMainAppModuleName(const char* name);

/* Where the common services send what they tell the user: the message road of the library that
 * installs it. flags are message-box flags (0x30: exclamation icon). Returns the previous sink;
 * with none installed, texts go to stderr. */
typedef int (*GenMessageSink)(QMK_HWND owner, const char* text, unsigned flags);
QMK_API GenMessageSink GenSetMessageSink(GenMessageSink sink);

/* Checks a file name template before it is used for automatic naming. Returns 1 when it is
 * usable. Otherwise tells the user why, through the message sink with `owner` as parent, and
 * returns 0: for a null or empty template, a star not followed by a code letter (D, H, J, M, N,
 * S, T, W, Y, in either case; a star at the end too), a character that a data file name may not
 * hold (control characters and \ / : ? " < > |), or an expansion longer than 259 characters. */
QMK_API int GenCheckAutoNameCString(const char* name_template, QMK_HWND owner);

/* Dialog options remembered by dialog name. The common services keep, for each name, the
 * options text and the window's place and size; they reach the window only through the hooks
 * that the library installs (without hooks the place is neither read nor applied).
 * GenGetDialogOpts copies the remembered options into buffer (at most size - 1 bytes,
 * zero-ended; empty when nothing is remembered) and moves the window to its remembered place.
 * It returns 1 when something was remembered under the name, else 0. GenSetDialogOpts
 * remembers options (null counts as empty) and the window's place under the name; 0 for a
 * null or empty name, else 1. Names are compared exactly. */
typedef struct GenWindowHooks {
  unsigned size; /* sizeof(GenWindowHooks) */
  /* Fills left, top, right, bottom of the window; 0 when the window is gone. */
  int (*get_rect)(QMK_HWND window, int rect[4]);
  /* Moves and sizes the window to the rectangle. */
  void (*set_rect)(QMK_HWND window, const int rect[4]);
} GenWindowHooks;
QMK_API void GenSetWindowHooks(const GenWindowHooks* hooks);
QMK_API int GenGetDialogOpts(QMK_HWND window, const char* name, char* buffer, int size);
QMK_API int GenSetDialogOpts(QMK_HWND window, const char* name, const char* options);

/* Still to come, each with the work that first needs it: GenLoadCString, GenLoadConfigEx,
 * GenVfyFileSpec, GenNormalizeDateStr, GenGetDataFileMetrics, GenGetHelpId_Component,
 * GenGetToolsDir, GenGetClientHandleServerMode. Nothing declares them before they work. */

QMK_END_DECLS

#endif
