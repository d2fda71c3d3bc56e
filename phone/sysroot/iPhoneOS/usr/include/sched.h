/* Scheduling: what the thread support asks for. */
#ifndef _PHONE_SCHED_H
#define _PHONE_SCHED_H

#include <sys/cdefs.h>

struct sched_param {
  int sched_priority;
  char __opaque[4];
};

__BEGIN_DECLS
int sched_yield(void);
__END_DECLS

#endif
