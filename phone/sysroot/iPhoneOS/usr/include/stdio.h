/* Streams. A FILE is only ever handled through a pointer. */
#ifndef _PHONE_STDIO_H
#define _PHONE_STDIO_H

#include <stdarg.h>
#include <stddef.h>
#include <sys/cdefs.h>

typedef struct __sFILE FILE;
typedef long long fpos_t;

#define EOF (-1)
#define BUFSIZ 1024
#define SEEK_SET 0
#define SEEK_CUR 1
#define SEEK_END 2
#define _IOFBF 0
#define _IOLBF 1
#define _IONBF 2

__BEGIN_DECLS
extern FILE* __stdinp;
extern FILE* __stdoutp;
extern FILE* __stderrp;

int fclose(FILE*);
int fflush(FILE*);
void setbuf(FILE* __restrict, char* __restrict);
int setvbuf(FILE* __restrict, char* __restrict, int, size_t);
int fprintf(FILE* __restrict, const char* __restrict, ...);
int fscanf(FILE* __restrict, const char* __restrict, ...);
int snprintf(char* __restrict, size_t, const char* __restrict, ...);
int sprintf(char* __restrict, const char* __restrict, ...);
int sscanf(const char* __restrict, const char* __restrict, ...);
int vfprintf(FILE* __restrict, const char* __restrict, va_list);
int vfscanf(FILE* __restrict, const char* __restrict, va_list);
int vsscanf(const char* __restrict, const char* __restrict, va_list);
int vsnprintf(char* __restrict, size_t, const char* __restrict, va_list);
int vsprintf(char* __restrict, const char* __restrict, va_list);
int fgetc(FILE*);
char* fgets(char* __restrict, int, FILE* __restrict);
int fputc(int, FILE*);
int fputs(const char* __restrict, FILE* __restrict);
int getc(FILE*);
int putc(int, FILE*);
int ungetc(int, FILE*);
size_t fread(void* __restrict, size_t, size_t, FILE* __restrict);
size_t fwrite(const void* __restrict, size_t, size_t, FILE* __restrict);
int fgetpos(FILE* __restrict, fpos_t* __restrict);
int fseek(FILE*, long, int);
int fsetpos(FILE*, const fpos_t*);
long ftell(FILE*);
void rewind(FILE*);
void clearerr(FILE*);
int feof(FILE*);
int ferror(FILE*);
void perror(const char*);
FILE* fopen(const char* __restrict, const char* __restrict);
FILE* freopen(const char* __restrict, const char* __restrict, FILE* __restrict);
int remove(const char*);
int rename(const char*, const char*);
FILE* tmpfile(void);
int getchar(void);
int scanf(const char* __restrict, ...);
int vscanf(const char* __restrict, va_list);
int printf(const char* __restrict, ...);
int putchar(int);
int puts(const char*);
int vprintf(const char* __restrict, va_list);
__END_DECLS

#define stdin __stdinp
#define stdout __stdoutp
#define stderr __stderrp

#endif
