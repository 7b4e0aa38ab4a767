// What is called of the libraries behind the connection with a print server.
#pragma once

#include <cups/cups.h>
#include <gnutls/gnutls.h>

#include "system/posix/late_library.h"

namespace pagivo::native {

inline constinit const LateLibrary kLibCups("libcups.so.2");
PAGIVO_LATE_FUNCTION(kLibCups, cupsEncryption);
PAGIVO_LATE_FUNCTION(kLibCups, cupsServer);
PAGIVO_LATE_FUNCTION(kLibCups, cupsUser);
PAGIVO_LATE_FUNCTION(kLibCups, httpAddrFamily);
PAGIVO_LATE_FUNCTION(kLibCups, httpAddrFreeList);
PAGIVO_LATE_FUNCTION(kLibCups, httpAddrGetList);
PAGIVO_LATE_FUNCTION(kLibCups, httpAddrLength);
PAGIVO_LATE_FUNCTION(kLibCups, httpSeparateURI);
PAGIVO_LATE_FUNCTION(kLibCups, ippAddBoolean);
PAGIVO_LATE_FUNCTION(kLibCups, ippAddCollection);
PAGIVO_LATE_FUNCTION(kLibCups, ippAddInteger);
PAGIVO_LATE_FUNCTION(kLibCups, ippAddString);
PAGIVO_LATE_FUNCTION(kLibCups, ippAddStrings);
PAGIVO_LATE_FUNCTION(kLibCups, ippDelete);
PAGIVO_LATE_FUNCTION(kLibCups, ippFindAttribute);
PAGIVO_LATE_FUNCTION(kLibCups, ippFirstAttribute);
PAGIVO_LATE_FUNCTION(kLibCups, ippGetBoolean);
PAGIVO_LATE_FUNCTION(kLibCups, ippGetCollection);
PAGIVO_LATE_FUNCTION(kLibCups, ippGetCount);
PAGIVO_LATE_FUNCTION(kLibCups, ippGetGroupTag);
PAGIVO_LATE_FUNCTION(kLibCups, ippGetInteger);
PAGIVO_LATE_FUNCTION(kLibCups, ippGetName);
PAGIVO_LATE_FUNCTION(kLibCups, ippGetRange);
PAGIVO_LATE_FUNCTION(kLibCups, ippGetString);
PAGIVO_LATE_FUNCTION(kLibCups, ippGetValueTag);
PAGIVO_LATE_FUNCTION(kLibCups, ippNew);
PAGIVO_LATE_FUNCTION(kLibCups, ippNewRequest);
PAGIVO_LATE_FUNCTION(kLibCups, ippNextAttribute);
PAGIVO_LATE_FUNCTION(kLibCups, ippPort);
PAGIVO_LATE_FUNCTION(kLibCups, ippReadIO);
PAGIVO_LATE_FUNCTION(kLibCups, ippWriteIO);

inline constinit const LateLibrary kGnuTls("libgnutls.so.30");
PAGIVO_LATE_FUNCTION(kGnuTls, gnutls_certificate_allocate_credentials);
PAGIVO_LATE_FUNCTION(kGnuTls, gnutls_certificate_free_credentials);
PAGIVO_LATE_FUNCTION(kGnuTls, gnutls_credentials_set);
PAGIVO_LATE_FUNCTION(kGnuTls, gnutls_deinit);
PAGIVO_LATE_FUNCTION(kGnuTls, gnutls_error_is_fatal);
PAGIVO_LATE_FUNCTION(kGnuTls, gnutls_handshake);
PAGIVO_LATE_FUNCTION(kGnuTls, gnutls_init);
PAGIVO_LATE_FUNCTION(kGnuTls, gnutls_record_check_pending);
PAGIVO_LATE_FUNCTION(kGnuTls, gnutls_record_get_direction);
PAGIVO_LATE_FUNCTION(kGnuTls, gnutls_record_recv);
PAGIVO_LATE_FUNCTION(kGnuTls, gnutls_record_send);
PAGIVO_LATE_FUNCTION(kGnuTls, gnutls_server_name_set);
PAGIVO_LATE_FUNCTION(kGnuTls, gnutls_set_default_priority);
PAGIVO_LATE_FUNCTION(kGnuTls, gnutls_transport_set_int2);  // under its other name a macro

}  // namespace pagivo::native
