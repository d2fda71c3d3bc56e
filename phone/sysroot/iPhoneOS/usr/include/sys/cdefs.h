/* C linkage for the declarations below when a C++ file includes them. */
#ifndef _PHONE_SYS_CDEFS_H
#define _PHONE_SYS_CDEFS_H

#ifdef __cplusplus
#define __BEGIN_DECLS extern "C" {
#define __END_DECLS }
#else
#define __BEGIN_DECLS
#define __END_DECLS
#endif

#endif
