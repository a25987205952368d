/* Visibility and linkage of the exported interface. */
#ifndef GVUTIL_EXPORT_H
#define GVUTIL_EXPORT_H

#define GVUTIL_API __attribute__((visibility("default")))
/* printf-style checking of a format argument and its values. */
#define GVUTIL_PRINTF(format_index, first_value)                                                   \
    __attribute__((format(printf, format_index, first_value)))

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
