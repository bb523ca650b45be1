#include "app/window/PicturePrint.h"

#include <QPrinter>

#include <algorithm>
#include <new>

namespace veldraw::app {

QString printPicture(PagePicture const& picture, QPrinter& printer)
{
    QPainter painter;
    if (!painter.begin(&printer))
        return QStringLiteral("the printer does not take it");
    QSizeF const sheet = printer.pageRect(QPrinter::DevicePixel).size();
    QSizeF const size = picture.size;
    double const scale = std::min(sheet.width() / size.width(), sheet.height() / size.height());
    painter.translate(0.5 * (sheet.width() - scale * size.width()), 0.5 * (sheet.height() - scale * size.height()));
    painter.scale(scale, scale);
    painter.setRenderHint(QPainter::LosslessImageRendering);
    try {
        picture.paint(painter);
    } catch (std::bad_alloc const&) {
        painter.end();
        printer.abort();
        return QStringLiteral("there is no memory for it");
    }
    return painter.end() ? QString() : QStringLiteral("the printer does not take it");
}

} // namespace veldraw::app
