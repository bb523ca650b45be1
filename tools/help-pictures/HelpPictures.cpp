#include "tools/help-pictures/HelpPictures.h"

#include "app/window/DataOperation.h"
#include "dialogs/frame/QtDialogAbstract.h"
#include "kernel/session/Session.h"

#include <QAbstractButton>
#include <QDir>
#include <QFileInfo>
#include <QImageWriter>
#include <QPainter>
#include <QSet>

#include <algorithm>

namespace veldraw::app {

using tests::UserDriver;

namespace {

constexpr int plotWidth = 280; // two stand side by side in the help viewer
constexpr int mostSteps = 20;  // of one press of a button, with the frame that it makes

DataOperation const* operationOf(char const* action)
{
    for (DataOperation const& operation : dataOperations())
        if (QLatin1String(operation.name) == QLatin1String(action))
            return &operation;
    return nullptr;
}

QAbstractButton* buttonOf(QDialog const& dialog, char const* text)
{
    for (QAbstractButton* const button : dialog.findChildren<QAbstractButton*>())
        if (button->text() == QLatin1String(text))
            return button;
    return nullptr;
}

// On a white page a window without its frame has no edge.
QImage withEdge(QImage image)
{
    QPainter painter(&image);
    painter.setPen(QColor(0xa0, 0xa0, 0xa0));
    painter.drawRect(image.rect().adjusted(0, 0, -1, -1));
    return image;
}

// The nearest of 32 shades a channel; with a palette where 256 colours do.
QImage withFewColours(QImage const& image)
{
    auto const nearest = [](int shade) { return (shade * 31 + 127) / 255 * 255 / 31; };
    QImage result = image.convertToFormat(QImage::Format_RGB32);
    QSet<QRgb> colours;
    for (int y = 0; y < result.height(); ++y)
        for (int x = 0; x < result.width(); ++x) {
            QRgb const old = result.pixel(x, y);
            QRgb const colour = qRgb(nearest(qRed(old)), nearest(qGreen(old)), nearest(qBlue(old)));
            result.setPixel(x, y, colour);
            if (colours.size() <= 256)
                colours.insert(colour);
        }
    QVector<QRgb> palette(colours.begin(), colours.end());
    std::sort(palette.begin(), palette.end()); // the same file from the same picture
    return colours.size() <= 256 ? result.convertToFormat(QImage::Format_Indexed8, palette, Qt::ThresholdDither)
                                 : result.convertToFormat(QImage::Format_RGB888);
}

} // namespace

HelpPictures::HelpPictures(MainWindow& window, QString samples, QString out, std::atomic<Deferral>& deferral)
    : m_window(window)
    , m_user(out)
    , m_samples(std::move(samples))
    , m_out(std::move(out))
    , m_deferral(deferral)
{
}

QStringList HelpPictures::take()
{
    for (HelpSubject const& subject : helpSubjects())
        takeOf(subject);
    m_problems += m_user.unexpectedMessages();
    return m_problems;
}

bool HelpPictures::open(QString const& sample, Deferral deferral)
{
    if (sample == m_open && deferral == m_deferral)
        return false;
    m_open = sample;
    m_deferral = deferral;
    m_user.activate(m_window);
    m_window.openFiles({m_samples + QLatin1Char('/') + sample}, DocumentController::Place::FreshPage);
    m_user.settle(1500);
    return true;
}

void HelpPictures::takeOf(HelpSubject const& subject)
{
    DataOperation const* const operation = operationOf(subject.action);
    if (!operation) {
        m_problems.push_back(QStringLiteral("there is no dialog %1").arg(QLatin1String(subject.action)));
        return;
    }
    QString const topic = QString::fromLatin1(subject.topic);
    QString const sample = QString::fromLatin1(subject.sample);
    if (open(sample, subject.deferral) && subject.button)
        takePlot(QFileInfo(sample).baseName());
    operation->dialog(m_window).launch();
    auto* const dialog = UserDriver::visibleWindow<dialogs::common::QtDialogAbstract>();
    m_user.activate(*dialog);
    subject.enter(*dialog, m_user);
    m_user.settle(300);
    takeDialog(*dialog, topic);
    kernel::History const& history = kernel::Session::instance().history();
    if (QAbstractButton* const button = subject.button ? buttonOf(*dialog, subject.button) : nullptr) {
        m_user.messagesDuring([&] { m_user.click(*button); }, [&history] { return history.canUndo(); });
        m_user.settle(500);
        takePlot(topic + QStringLiteral("_after"));
    }
    // Before another sample is opened, which would ask whether to save.
    for (int step = 0; step < mostSteps && history.canUndo(); ++step)
        m_user.key(Qt::Key_Z, Qt::ControlModifier);
    dialog->close();
}

void HelpPictures::takePlot(QString const& name)
{
    m_user.activate(m_window);
    m_user.key(Qt::Key_F, Qt::ControlModifier);
    m_user.settle(700);
    QImage const plot = m_window.centralWidget()->grab().toImage();
    save(plot.scaledToWidth(plotWidth, Qt::SmoothTransformation), name);
}

void HelpPictures::takeDialog(QDialog& dialog, QString const& name)
{
    save(withEdge(dialog.grab().toImage()), name);
}

// Few colours and the strongest compression: help is shipped with every copy of the program.
void HelpPictures::save(QImage const& image, QString const& name)
{
    QImageWriter writer(QDir(m_out).filePath(name + QStringLiteral(".png")));
    writer.setCompression(100);
    if (!writer.write(withFewColours(image)))
        m_problems.push_back(writer.fileName() + QStringLiteral(": ") + writer.errorString());
}

} // namespace veldraw::app
