// Gmime: the library for MIME, ready for use. GMime, since it takes broken mail as it comes, decodes what
// mail programs really send, and is kept up.
#pragma once

#include "Platform/mail/posix/Glib.h"

#include <gmime/gmime.h>

namespace platform::detail {

/// To be called before anything else of GMime's.
void StartGmime();

}  // namespace platform::detail
