/* Visibility and linkage of the exported interface. */
#ifndef GVUTIL_EXPORT_H
#define GVUTIL_EXPORT_H

#define GVUTIL_API __attribute__((visibility("default")))

#ifdef __cplusplus
#define GVUTIL_BEGIN_DECLS extern "C" {
#define GVUTIL_END_DECLS }
/* Nothing unwinds out of the library. */
#define GVUTIL_NOEXCEPT noexcept
#else
#define GVUTIL_BEGIN_DECLS
#define GVUTIL_END_DECLS
#define GVUTIL_NOEXCEPT
#endif

#endif
