#include "render/color_text.h"

namespace tessel::render {
double luminance(const host::Color& color) { return 0.299 * color.red + 0.587 * color.green + 0.114 * color.blue; }

}  // namespace tessel::render
