#pragma once

#include "platform/qtext.h"

namespace controls {

using platform::qtext;

}  // namespace controls
