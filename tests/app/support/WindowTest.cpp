#include "tests/app/support/WindowTest.h"

#include "app/import/Importer.h"
#include "host/KernelBridge.h"
#include "host/MessageLog.h"
#include "host/MessagePresenter.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QSettings>
#include <QTest>
#include <QTimer>

namespace veldraw::tests {

namespace {

kernel::Field field(ValueLocation_e location, std::int64_t size, double first)
{
    auto const buffer = kernel::Buffer::allocate(FieldDataType_Double, size);
    for (std::int64_t i = 0; i < size; ++i)
        buffer->setValue(i, first + static_cast<double>(i));
    return kernel::Field(std::make_shared<kernel::ShareGroup>(buffer), location);
}

std::shared_ptr<kernel::Zone> plane(std::string const& name, int i, int j)
{
    auto const zone = std::make_shared<kernel::Zone>(name, ZoneType_Ordered, i, j, 1);
    auto const x = kernel::Buffer::allocate(FieldDataType_Double, i * j);
    auto const y = kernel::Buffer::allocate(FieldDataType_Double, i * j);
    for (int point = 0; point < i * j; ++point) {
        x->setValue(point, point % i);
        y->setValue(point, point / i);
    }
    zone->fields = {kernel::Field(std::make_shared<kernel::ShareGroup>(x), ValueLocation_Nodal),
                    kernel::Field(std::make_shared<kernel::ShareGroup>(y), ValueLocation_Nodal),
                    field(ValueLocation_CellCentered, i * j, 10)};
    return zone;
}

} // namespace

WindowTest::WindowTest()
    : session(kernel::Session::instance())
{
    QCoreApplication::setOrganizationName(QStringLiteral("veldraw"));
    QCoreApplication::setApplicationName(QStringLiteral("window-test"));
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder.filePath(QStringLiteral("settings")));
    host::KernelBridge::install();
    host::MessageLog::instance().clear();
    host::MessagePresenter::install([this](std::string const& text, MessageBoxType_e) { messages.push_back(text); });
    session.clear();
    session.history().setClean();
}

WindowTest::~WindowTest()
{
    window.reset();
    host::MessagePresenter::install({});
    session.clear();
    settle();
}

std::shared_ptr<kernel::DataSet> WindowTest::makeFlow()
{
    auto dataSet = std::make_shared<kernel::DataSet>("flow over a step");
    for (char const* name : {"X", "Y", "P"})
        dataSet->addVariable(std::make_shared<kernel::Variable>(name));
    dataSet->addZone(plane("inlet", 4, 3));
    dataSet->addZone(plane("outlet", 2, 2));
    return dataSet;
}

std::shared_ptr<kernel::DataSet> WindowTest::makeTransient(int count)
{
    auto const flow = makeFlow();
    auto transient = std::make_shared<kernel::DataSet>("transient");
    for (auto const& variable : flow->variables())
        transient->addVariable(variable);
    for (int step = 0; step < count; ++step) {
        auto zone = std::make_shared<kernel::Zone>(*flow->zone(1));
        zone->id = kernel::nextUniqueId();
        zone->strand = 1;
        zone->solutionTime = 0.5 * step;
        transient->addZone(zone);
    }
    return transient;
}

std::shared_ptr<kernel::DataSet> WindowTest::makeSeries()
{
    auto dataSet = std::make_shared<kernel::DataSet>("series");
    dataSet->addVariable(std::make_shared<kernel::Variable>("t"));
    dataSet->addVariable(std::make_shared<kernel::Variable>("v"));
    auto const zone = std::make_shared<kernel::Zone>("probe", ZoneType_Ordered, 5, 1, 1);
    zone->fields = {field(ValueLocation_Nodal, 5, 0), field(ValueLocation_Nodal, 5, 0)};
    dataSet->addZone(zone);
    return dataSet;
}

app::PagePicture WindowTest::blueSquares(QSize const& size)
{
    app::PagePicture picture;
    picture.size = size;
    picture.pixels = [size] {
        QImage pixels(size, QImage::Format_RGB32);
        pixels.fill(Qt::blue);
        return pixels;
    };
    picture.paint = [size](QPainter& painter) { painter.fillRect(QRect(QPoint(), size), Qt::blue); };
    return picture;
}

void WindowTest::openFrames(std::vector<std::pair<std::string, std::shared_ptr<kernel::DataSet>>> const& contents)
{
    std::vector<std::shared_ptr<kernel::Frame>> frames;
    for (auto const& [name, dataSet] : contents) {
        frames.push_back(std::make_shared<kernel::Frame>(name, kernel::Rectangle{}));
        frames.back()->dataSet = dataSet;
    }
    session.openPage(frames);
    session.history().setClean();
    settle();
}

app::CentralView WindowTest::makeView()
{
    app::CentralView view;
    view.widget = new QWidget;
    view.widget->setFocusPolicy(Qt::StrongFocus);
    view.fitActiveFrame = [this] { ++fits; };
    view.showOpening = [this](QString const& fileName) { openings << fileName; };
    view.picture = [this](app::PictureOptions const& options) {
        pictureOptions = options;
        return blueSquares({8, 6});
    };
    return view;
}

app::DocumentController::FileReader WindowTest::makeReader()
{
    return [](app::FileGroup const& group, app::OutsidePaths outsidePaths, kernel::Progress& progress) {
        return app::importGroup(group, app::Deferral::Auto, progress, outsidePaths);
    };
}

app::MainWindow& WindowTest::showWindow()
{
    app::CentralView const view = makeView();
    middle = view.widget;
    window = std::make_unique<app::MainWindow>(session, view, makeReader());
    window->show();
    QApplication::setActiveWindow(window.get());
    bool const isDrawn =
        QGuiApplication::platformName() != QLatin1String("offscreen"); // then no window manager is about
    EXPECT_TRUE(isDrawn ? QTest::qWaitForWindowExposed(window.get()) : QTest::qWaitForWindowActive(window.get()));
    settle();
    return *window;
}

void WindowTest::settle()
{
    QCoreApplication::processEvents();
    sdk::ui::common::IdleDispatcher::flush();
    QCoreApplication::processEvents();
}

QAction& WindowTest::action(char const* name)
{
    auto* const found = window->findChild<QAction*>(QString::fromLatin1(name));
    if (!found)
        throw std::runtime_error(std::string("no action called ") + name);
    return *found;
}

void WindowTest::answerModal(Qt::Key key, QString* objectName, Qt::KeyboardModifiers modifiers)
{
    QTimer::singleShot(20, qApp, [=] {
        QWidget* const modal = QApplication::activeModalWidget();
        if (!modal || QApplication::activeWindow() != modal) // before, its mnemonics do nothing
            return answerModal(key, objectName, modifiers);
        if (objectName)
            *objectName = modal->objectName();
        QTest::keyClick(modal, key, modifiers);
    });
}

QString WindowTest::writeFile(QString const& name, QByteArray const& content)
{
    QString const path = folder.filePath(name);
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(content.size(), file.write(content));
    return path;
}

} // namespace veldraw::tests
