#pragma once

#include "picture.hpp"

#include <string>

namespace terrain {

// Letters of 5 x 7 dots, two pixels a dot. Characters beyond ASCII are left blank.
int text_width(const std::string &text);
void draw_text(Picture &picture, int left, int top, const std::string &text, const Colour &colour);

} // namespace terrain
