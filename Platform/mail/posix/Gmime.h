// Gmime: initialises the MIME library GMime, chosen because it accepts malformed mail, decodes what mail
// programs really send, and is maintained.
#pragma once

#include "Platform/mail/posix/Glib.h"

#include <gmime/gmime.h>

namespace platform::detail {

/// Must be called before any other function of GMime.
void StartGmime();

}  // namespace platform::detail
