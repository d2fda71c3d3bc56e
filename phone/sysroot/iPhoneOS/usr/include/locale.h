/* Locales (and with them the stream headers) are not declared for the phone:
   the library formats its texts itself. */
#ifndef _PHONE_LOCALE_H
#define _PHONE_LOCALE_H
#error "locales and streams (<ios>, <sstream>, <locale>, <regex>, ...) are not available in the phone build"
#endif
