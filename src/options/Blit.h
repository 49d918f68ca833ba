#pragma once
// Module Blit: every icon of the library takes one size, whatever file it came from.

#include <QImage>

namespace Blit {

// The whole picture, smoothly resampled to the library's square of 18 by 18 pixels;
// a picture that isn't square is stretched to it. A null picture stays null.
QImage AjusterImage(const QImage &source);

}  // namespace Blit
