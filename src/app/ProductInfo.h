// Settings of the product itself, chosen when it is built.
#pragma once

#include <string_view>

namespace tembrel {

// The address that Help > Website opens.
extern const std::string_view kWebsite;

}  // namespace tembrel
