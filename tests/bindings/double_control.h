/* What a test says to the double library. All strings are UTF-8. */
#ifndef VESK_DOUBLE_CONTROL_H
#define VESK_DOUBLE_CONTROL_H

#ifdef __GNUC__
#define DOUBLE_API __attribute__((visibility("default")))
#else
#define DOUBLE_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/*
 * The answer of one export from now on. Parts are separated by blanks, a text comes last:
 *
 *     number 53              the result, and the registers of CPU_ReadCpuId as four numbers
 *     bytes 00ff             what is written to a buffer of bytes
 *     text ...               what is written to a buffer of characters, or the string object
 *     units d83d 0041        the same as UTF-16 units in hexadecimal
 *     full                   a text of as many characters as the buffer can hold
 *     untouched              nothing is written
 *     slow ANSWER            the answer after 30 ms
 */
DOUBLE_API void Double_Set(const char* name, const char* answer);

/* The same for every export. */
DOUBLE_API void Double_SetAll(const char* answer);

/* The names of the exports called since Double_Reset, each once, separated by blanks. */
DOUBLE_API const char* Double_Called(void);

/* The names of all exports. */
DOUBLE_API const char* Double_All(void);

/* The size of the export's buffer, in characters or bytes; 0 without one. */
DOUBLE_API int Double_Size(const char* name);

/* The last argument of this name that the export was given: a number, or bytes or UTF-16 units in hexadecimal. */
DOUBLE_API const char* Double_Argument(const char* name, const char* argument);

/* How many calls were within the library at the same time, at most. */
DOUBLE_API int Double_MostOverlapping(void);

/* As after loading: number 0 and an empty text. */
DOUBLE_API void Double_Reset(void);

#ifdef __cplusplus
}
#endif

#endif
