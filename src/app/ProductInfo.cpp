#include "app/ProductInfo.h"

#include "app/ProductVersion.h"

namespace tembrel {

constexpr std::string_view kWebsite = kProductWebsite;

}  // namespace tembrel
