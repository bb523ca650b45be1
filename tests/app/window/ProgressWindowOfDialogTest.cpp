#include "dialogs/zoneops/AxialDuplicationDialog.h"
#include "dialogs/zoneops/AxialRotationDialog.h"
#include "kernel/operations/RenameZone.h"
#include "kernel/storage/ValueLoader.h"
#include "tests/app/support/LongWorkTest.h"
#include "tests/support/LoggedTexts.h"

#include <QAbstractSpinBox>
#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QListView>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include <atomic>
#include <gmock/gmock.h>
#include <thread>

namespace veldraw::tests {

namespace {

using dialogs::data::AxialDuplicationDialog;
using dialogs::data::AxialRotationDialog;
using testing::ElementsAre;

/// Brings the coordinates 0, 1, 2, 3, 0, 1, ... of a zone as a slow disk would.
class SlowLoader : public kernel::ValueLoader
{
public:
    SlowLoader(std::int64_t size, std::atomic<int>& milliseconds)
        : m_size(size)
        , m_milliseconds(milliseconds)
    {
    }

    std::shared_ptr<kernel::Buffer> load(kernel::Progress& progress) override
    {
        for (int passed = 0; passed < m_milliseconds; ++passed) {
            progress.check();
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        auto buffer = kernel::Buffer::allocate(FieldDataType_Double, m_size);
        for (std::int64_t point = 0; point < m_size; ++point)
            buffer->setValue(point, static_cast<double>(point % 4));
        return buffer;
    }

private:
    std::int64_t m_size;
    std::atomic<int>& m_milliseconds;
};

/// A rotation by its dialog that takes as long as the loading of a coordinate, on the kernel's own thread.
class SlowDialogTest : public LongWorkTest
{
protected:
    SlowDialogTest()
    {
        openFlow();
        showWindow();
        auto const loader = std::make_shared<SlowLoader>(12, m_milliseconds);
        zone().fields[0] =
            kernel::Field(std::make_shared<kernel::ShareGroup>(FieldDataType_Double, 12, loader), ValueLocation_Nodal);
        m_subscription = session.events().subscribe([this](kernel::StateChangeEvent const&) { ++events; });
    }

    ~SlowDialogTest() override { session.events().unsubscribe(m_subscription); }

    kernel::Zone& zone() { return *session.activeDataSet()->zone(1); }

    template <typename Dialog>
    Dialog& openDialog(char const* command)
    {
        action(command).trigger();
        settle();
        for (QWidget* const widget : QApplication::topLevelWidgets())
            if (auto* const dialog = dynamic_cast<Dialog*>(widget); dialog && dialog->isVisible())
                return *dialog;
        throw std::runtime_error("the dialog does not open");
    }

    static void click(QWidget& widget)
    {
        QTest::mouseClick(widget.window()->windowHandle(), Qt::LeftButton, {},
                          widget.mapTo(widget.window(), widget.rect().center()));
    }

    static QPushButton& button(QWidget& dialog, QString const& text)
    {
        for (QPushButton* const each : dialog.findChildren<QPushButton*>())
            if (each->text() == text)
                return *each;
        throw std::runtime_error("there is no such button");
    }

    static void chooseFirstZone(QWidget& dialog)
    {
        auto* const list = dialog.findChild<QListView*>(QStringLiteral("zoneList"));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(list->model()->index(0, 0)).center());
        settle();
    }

    /// Chooses the first zone and a quarter turn.
    AxialRotationDialog& openRotation()
    {
        auto& dialog = openDialog<AxialRotationDialog>("axialRotationAction");
        chooseFirstZone(dialog);
        auto* const angle = dialog.findChild<QAbstractSpinBox*>(QStringLiteral("angle_spinBox"));
        angle->setFocus();
        angle->selectAll();
        QTest::keyClicks(angle, QStringLiteral("90"));
        QTest::keyClick(angle, Qt::Key_Tab);
        settle();
        return dialog;
    }

    /// Clicks "Rotate" and has @p user act once the progress window is there.
    void rotate(AxialRotationDialog& dialog, int milliseconds, std::function<void()> const& user = {})
    {
        m_milliseconds = milliseconds;
        if (user)
            whenItShows(user);
        click(button(dialog, QStringLiteral("&Rotate")));
        settle();
    }

    std::vector<double> coordinates(int variable)
    {
        std::vector<double> values;
        auto const buffer = session.activeDataSet()->field(1, variable)->group()->buffer();
        for (std::int64_t point = 0; point < 4; ++point)
            values.push_back(buffer->value(point));
        return values;
    }

    int events = 0;

private:
    std::atomic<int> m_milliseconds{0};
    kernel::EventHub::Subscription m_subscription = 0;
};

} // namespace

TEST_F(SlowDialogTest, EscapeInTheProgressWindowLeavesNoTraceButTheMessage)
{
    ASSERT_TRUE(session.perform(kernel::RenameZone(*session.activeDataSet(), 2, "exit")));
    AxialRotationDialog& dialog = openRotation();
    auto const groups = [this] {
        std::vector<kernel::ShareGroup const*> found;
        for (kernel::Field const& field : zone().fields)
            found.push_back(field.group().get());
        return found;
    };
    auto const before = groups();
    events = 0;
    QElapsedTimer sinceEscape;
    rotate(dialog, 10000, [&] {
        EXPECT_EQ(QStringLiteral("Axial Rotation"), progressWindow()->windowTitle());
        EXPECT_EQ(&dialog, progressWindow()->parentWidget());
        sinceEscape.start();
        QTest::keyClick(progressWindow()->windowHandle(), Qt::Key_Escape);
    });
    ASSERT_TRUE(sinceEscape.isValid()) << "the progress window has been there";
    EXPECT_LT(sinceEscape.elapsed(), 5000) << "else reading the values would have gone on for ten seconds";
    EXPECT_THAT(messages, ElementsAre("Failed to perform axial rotation."));
    EXPECT_THAT(loggedTexts(), ElementsAre("The operation was cancelled.", "Failed to perform axial rotation."));
    EXPECT_EQ(before, groups());
    EXPECT_EQ(0, events);
    EXPECT_EQ("Rename Zone", session.history().undoName());
    EXPECT_FALSE(session.history().canRedo());
    EXPECT_EQ(QStringLiteral("&Undo Rename Zone"), action("undoAction").text());
    EXPECT_TRUE(dialog.isVisible());
}

TEST_F(SlowDialogTest, TheSameDialogRotatesAfterACancel)
{
    AxialRotationDialog& dialog = openRotation();
    rotate(dialog, 10000, [] { QTest::keyClick(progressWindow()->windowHandle(), Qt::Key_Escape); });
    ASSERT_EQ(1U, messages.size());
    rotate(dialog, 0);
    EXPECT_EQ(1U, messages.size());
    EXPECT_EQ("Axial Rotation", session.history().undoName());
    EXPECT_THAT(coordinates(1), ElementsAre(0.0, 0.0, 0.0, 0.0));
    EXPECT_THAT(coordinates(2), ElementsAre(0.0, 1.0, 2.0, 3.0));
}

TEST_F(SlowDialogTest, AnotherOpenDialogStartsNothingMeanwhile)
{
    auto& other = openDialog<AxialDuplicationDialog>("axialDuplicationAction");
    chooseFirstZone(other);
    AxialRotationDialog& dialog = openRotation();
    bool wasThere = false;
    rotate(dialog, 900, [&] {
        wasThere = true;
        QPushButton& duplicate = button(other, QStringLiteral("&Duplicate"));
        QTest::mouseClick(&duplicate, Qt::LeftButton);
        click(duplicate);
        QTest::keyClick(&duplicate, Qt::Key_Space);
        QTest::keyClick(&other, Qt::Key_D, Qt::AltModifier);
        QTest::keyClick(other.windowHandle(), Qt::Key_D, Qt::AltModifier);
        click(button(dialog, QStringLiteral("&Rotate")));
        action("deleteVariableAction").trigger();
        action("undoAction").trigger();
    });
    EXPECT_TRUE(wasThere);
    QTest::qWait(200); // what was kept back would come now
    settle();
    EXPECT_EQ(2, session.activeDataSet()->zoneCount());
    EXPECT_EQ("Axial Rotation", session.history().undoName());
    EXPECT_TRUE(session.undo());
    EXPECT_FALSE(session.history().canUndo()) << "it was the only step";
    EXPECT_TRUE(messages.empty());
    click(button(other, QStringLiteral("&Duplicate")));
    EXPECT_TRUE(QTest::qWaitFor([this] { return session.activeDataSet()->zoneCount() > 2; }))
        << "once it has ended, the dialog works again: " << testing::PrintToString(messages);
}

} // namespace veldraw::tests
