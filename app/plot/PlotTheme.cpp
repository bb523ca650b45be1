#include "app/plot/PlotTheme.h"

#include <QFile>
#include <QStringList>
#include <vtkTextProperty.h>

#include <algorithm>
#include <array>

namespace veldraw::app {

namespace {

// The typefaces built into VTK know Latin letters only; variables are often named with Greek ones.
QByteArray fontFile(bool bold)
{
    QStringList const folders = {QStringLiteral("/usr/share/fonts/truetype/dejavu/"),
                                 QStringLiteral("/usr/share/fonts/dejavu/"), QStringLiteral("/usr/share/fonts/TTF/")};
    QString const name = bold ? QStringLiteral("DejaVuSans-Bold.ttf") : QStringLiteral("DejaVuSans.ttf");
    for (QString const& folder : folders)
        if (QFile::exists(folder + name))
            return QFile::encodeName(folder + name);
    return {};
}

} // namespace

QColor PlotTheme::curve(int index)
{
    static std::array<QColor, 8> const colours = {
        QColor{0x1F, 0x6F, 0xB5}, QColor{0xD1, 0x5F, 0x1B}, QColor{0x2B, 0x8A, 0x57}, QColor{0x8E, 0x4F, 0xA8},
        QColor{0xB8, 0x2E, 0x3C}, QColor{0x1B, 0x93, 0x9B}, QColor{0x8A, 0x6D, 0x1F}, QColor{0x4A, 0x55, 0x68}};
    return colours[static_cast<std::size_t>(index) % colours.size()];
}

void PlotTheme::apply(vtkTextProperty& property, QColor const& colour, int size, bool bold)
{
    static QByteArray const regularFile = fontFile(false);
    static QByteArray const boldFile = fontFile(true);
    QByteArray const& file = bold ? boldFile : regularFile;
    if (file.isEmpty()) {
        property.SetFontFamilyToArial();
        property.SetBold(bold);
    } else {
        property.SetFontFamily(VTK_FONT_FILE);
        property.SetFontFile(file.constData());
        property.BoldOff();
    }
    property.ItalicOff();
    property.ShadowOff();
    property.SetFontSize(size);
    property.SetColor(colour.redF(), colour.greenF(), colour.blueF());
    property.SetOpacity(1.0);
}

QFont PlotTheme::fontOf(vtkTextProperty& property)
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(std::max(property.GetFontSize(), 1));
    bool const isFromFile = property.GetFontFamily() == VTK_FONT_FILE && property.GetFontFile() != nullptr;
    font.setBold(isFromFile ? QByteArray(property.GetFontFile()).contains("-Bold") : property.GetBold() != 0);
    return font;
}

} // namespace veldraw::app
