#include "tests/manual/GalleryCheck.h"
#include "tests/manual/GalleryData.h"
#include "tests/manual/GalleryWindow.h"

#include <QApplication>
#include <QLocale>
#include <QTimer>

#include <clocale>
#include <cstdio>

namespace {

using veldraw::tests::GalleryWindow;

/// Saves a picture as soon as the window is drawn, and ends the program.
void takePicture(GalleryWindow& window, QString const& file)
{
    QTimer::singleShot(500, &window, [&window, file] {
        bool const isSaved = window.grab().save(file);
        if (!isSaved)
            std::fprintf(stderr, "cannot write %s\n", qPrintable(file));
        QApplication::exit(isSaved ? 0 : 1);
    });
}

} // namespace

/// usage: veldraw_gallery [--check | --picture FILE]
int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("fusion"));
    std::setlocale(LC_NUMERIC, "C");
    QLocale english(QLocale::English, QLocale::UnitedStates);
    english.setNumberOptions(QLocale::RejectGroupSeparator | QLocale::OmitGroupSeparator);
    QLocale::setDefault(english);

    veldraw::tests::GalleryData const data;
    GalleryWindow window;
    QStringList const arguments = QApplication::arguments();
    if (arguments.contains(QStringLiteral("--check")))
        return veldraw::tests::GalleryCheck(window).run() ? 0 : 1;
    window.show();
    int const picture = arguments.indexOf(QStringLiteral("--picture"));
    if (picture > 0 && picture + 1 < arguments.size())
        takePicture(window, arguments[picture + 1]);
    return QApplication::exec();
}
