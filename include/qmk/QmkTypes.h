/* QmkTypes.h: the export macro and the opaque window handle shared by every QmkScan header. */
#ifndef QMK_TYPES_H
#define QMK_TYPES_H

#include <stdint.h>

#if defined(__GNUC__)
#define QMK_API __attribute__((visibility("default")))
#else
#define QMK_API
#endif

#ifdef __cplusplus
#define QMK_EXTERN_C extern "C"
#define QMK_BEGIN_DECLS extern "C" {
#define QMK_END_DECLS }
#else
#define QMK_EXTERN_C
#define QMK_BEGIN_DECLS
#define QMK_END_DECLS
#endif

/* A window of the host or of the library. Null stands for "no window". */
typedef struct qmk_window* QMK_HWND;

#endif
