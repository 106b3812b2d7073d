#pragma once

#include <QIcon>
#include <string>

namespace quorvel {

// A built-in picture by its name: "Report", "Menu", "Program" (kinds of options), "run",
// "terminal", "app". An empty icon for any other name.
QIcon PictureIcon(const std::string& name);

}  // namespace quorvel
