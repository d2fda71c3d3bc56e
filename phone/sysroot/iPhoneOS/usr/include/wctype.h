/* Wide character classes of the C locale. */
#ifndef _PHONE_WCTYPE_H
#define _PHONE_WCTYPE_H

#include <sys/cdefs.h>

typedef int wint_t;
typedef unsigned int wctype_t;
typedef int wctrans_t;

#define WEOF ((wint_t)-1)

__BEGIN_DECLS
int iswalnum(wint_t);
int iswalpha(wint_t);
int iswblank(wint_t);
int iswcntrl(wint_t);
int iswdigit(wint_t);
int iswgraph(wint_t);
int iswlower(wint_t);
int iswprint(wint_t);
int iswpunct(wint_t);
int iswspace(wint_t);
int iswupper(wint_t);
int iswxdigit(wint_t);
int iswctype(wint_t, wctype_t);
wctype_t wctype(const char*);
wint_t towlower(wint_t);
wint_t towupper(wint_t);
wint_t towctrans(wint_t, wctrans_t);
wctrans_t wctrans(const char*);
__END_DECLS

#endif
