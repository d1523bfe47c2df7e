// Where the product lives on the web and how its authors are reached: the About window and the
// tool tips of both logos take them from here, and from nowhere else.
#pragma once

#include <string>

namespace product {

inline constexpr const char* kWebAddress = "http://www.kelvarnite.example/";
inline constexpr const char* kWebHost = "www.kelvarnite.example";
inline constexpr const char* kContactAddress = "authors@kelvarnite.example";

// The tool tip of a logo that leads to the web site.
inline std::string LogoToolTip() { return std::string("Click to go to ") + kWebHost; }

}  // namespace product
