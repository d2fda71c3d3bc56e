/* Calendar time, processor time and sleeping. */
#ifndef _PHONE_TIME_H
#define _PHONE_TIME_H

#include <stddef.h>
#include <sys/cdefs.h>

typedef long time_t;
typedef unsigned long clock_t;

struct timespec {
  time_t tv_sec;
  long tv_nsec;
};

struct tm {
  int tm_sec;
  int tm_min;
  int tm_hour;
  int tm_mday;
  int tm_mon;
  int tm_year;
  int tm_wday;
  int tm_yday;
  int tm_isdst;
  long tm_gmtoff;
  char* tm_zone;
};

#define CLOCKS_PER_SEC ((clock_t)1000000)

__BEGIN_DECLS
clock_t clock(void);
double difftime(time_t, time_t);
time_t mktime(struct tm*);
time_t time(time_t*);
char* asctime(const struct tm*);
char* ctime(const time_t*);
struct tm* gmtime(const time_t*);
struct tm* localtime(const time_t*);
size_t strftime(char* __restrict, size_t, const char* __restrict, const struct tm* __restrict);
int nanosleep(const struct timespec*, struct timespec*);
__END_DECLS

#endif
