/* Conversions, memory, the environment, searching and integer arithmetic. */
#ifndef _PHONE_STDLIB_H
#define _PHONE_STDLIB_H

#include <stddef.h>
#include <sys/cdefs.h>

typedef struct {
  int quot;
  int rem;
} div_t;

typedef struct {
  long quot;
  long rem;
} ldiv_t;

typedef struct {
  long long quot;
  long long rem;
} lldiv_t;

#define EXIT_SUCCESS 0
#define EXIT_FAILURE 1
#define RAND_MAX 0x7fffffff

__BEGIN_DECLS
double atof(const char*);
int atoi(const char*);
long atol(const char*);
long long atoll(const char*);
double strtod(const char* __restrict, char** __restrict);
float strtof(const char* __restrict, char** __restrict);
long double strtold(const char* __restrict, char** __restrict);
long strtol(const char* __restrict, char** __restrict, int);
long long strtoll(const char* __restrict, char** __restrict, int);
unsigned long strtoul(const char* __restrict, char** __restrict, int);
unsigned long long strtoull(const char* __restrict, char** __restrict, int);
int rand(void);
void srand(unsigned);
void* calloc(size_t, size_t);
void free(void*);
void* malloc(size_t);
void* realloc(void*, size_t);
/* What the C++ library's over-aligned allocation calls. */
int posix_memalign(void**, size_t, size_t);
void abort(void) __attribute__((__noreturn__));
int atexit(void (*)(void));
void exit(int) __attribute__((__noreturn__));
void _Exit(int) __attribute__((__noreturn__));
char* getenv(const char*);
int system(const char*);
void* bsearch(const void*, const void*, size_t, size_t, int (*)(const void*, const void*));
void qsort(void*, size_t, size_t, int (*)(const void*, const void*));
int abs(int) __attribute__((__const__));
long labs(long) __attribute__((__const__));
long long llabs(long long);
div_t div(int, int) __attribute__((__const__));
ldiv_t ldiv(long, long) __attribute__((__const__));
lldiv_t lldiv(long long, long long);
int mblen(const char*, size_t);
int mbtowc(wchar_t* __restrict, const char* __restrict, size_t);
int wctomb(char*, wchar_t);
size_t mbstowcs(wchar_t* __restrict, const char* __restrict, size_t);
size_t wcstombs(char* __restrict, const wchar_t* __restrict, size_t);
__END_DECLS

#endif
