/* The component's C interface: edit and preview the help document of one item.
 *
 * A document is a text, without its encoding: UTF-8 or, in the functions that end in _utf16, UTF-16
 * code units of the machine's byte order; both end with a NUL. What an XML declaration says about an
 * encoding is ignored.
 *
 * All calls come from one thread, the one that runs the host's windows, if it has any. They show
 * windows and return when the user has closed them. Nothing is thrown, and nothing ends the process.
 *
 * A function returns 0, or the number of a run-time error:
 *      5  Invalid procedure call or argument: a null pointer, or a call while another one is running
 *      6  Overflow: a document beyond the limits
 *      7  Out of memory
 *     13  Type mismatch: a picture or a number that cannot be read
 *     52, 53, 57, 61, 70, 76  files that cannot be read or written
 *     91  Object variable or With block variable not set: a document without a single help node
 *    361  Can't load or unload this object: no display, or another thread than that of the first call
 *    364  Object was unloaded: the document was rejected; the user has been told why
 */
#ifndef TAVISK_TAVISK_H
#define TAVISK_TAVISK_H

#ifdef __cplusplus
#include <cstdint>
extern "C" {
#else
#include <stdint.h>
#endif

#if defined(_WIN32)
#define TAVISK_API __declspec(dllexport)
#else
#define TAVISK_API __attribute__((visibility("default")))
#endif

/* Opens the editor on `xml`. `*result` receives the document as the user left it, or, when an error
 * is returned, a copy of `xml` itself. It is null only when memory for that copy is missing.
 *
 * `error_text` may be null. `*error_text` receives the text of the error, or null without one.
 *
 * The caller owns both strings and gives them back with tavisk_free. */
TAVISK_API int tavisk_edit_xml(const char *xml, char **result, char **error_text);
TAVISK_API int tavisk_edit_xml_utf16(const uint16_t *xml, uint16_t **result, char **error_text);

/* Renders `xml` to the page temp.html in the component's folder and shows it. Formula values,
 * pictures and overlays are filled in when `evaluate_formula` is not 0. */
TAVISK_API int tavisk_preview_xml(const char *xml, int evaluate_formula, char **error_text);
TAVISK_API int tavisk_preview_xml_utf16(const uint16_t *xml, int evaluate_formula,
                                        char **error_text);

/* Frees a string that a function of this interface handed out; null is nothing to free. */
TAVISK_API void tavisk_free(void *string);

/* For example "1.0.0"; never freed. */
TAVISK_API const char *tavisk_version(void);

#ifdef __cplusplus
}
#endif

#endif
