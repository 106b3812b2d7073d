// The picture that is shipped with the sample data.
#pragma once

#include <string>

namespace quorvel::demohost {

/// A bar chart of the year's sales as the bytes of a Windows bitmap file (BITMAPINFOHEADER, 24 bits
/// a pixel), 320 by 200 pixels.
std::string SalesChart();

}  // namespace quorvel::demohost
