#include "Blit.h"

#include "store/IconesStock.h"

namespace Blit {

QImage AjusterImage(const QImage &source) {
    if (source.isNull()) return {};
    // Indexed and mono pictures are made true colour first, so that the
    // resampling averages colours and keeps transparency.
    return source.convertToFormat(QImage::Format_ARGB32_Premultiplied)
        .scaled(IconesStock::kCote, IconesStock::kCote, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

}  // namespace Blit
