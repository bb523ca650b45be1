#pragma once

#include "app/window/MainWindow.h"
#include "kernel/session/Session.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace veldraw::tests {

/// A main window over the real kernel with a plain widget in its middle, settings of its own, and messages that are noted
/// instead of shown.
class WindowTest : public ::testing::Test
{
protected:
    WindowTest();
    ~WindowTest() override;

    /// Two ordered zones, "inlet" (4 x 3) and "outlet" (2 x 2); X and Y nodal from 0, P cell-centred from 10.
    static std::shared_ptr<kernel::DataSet> makeFlow();

    /// The inlet of makeFlow() at the times 0, 0.5, 1, ... in one strand.
    static std::shared_ptr<kernel::DataSet> makeTransient(int count);

    /// One I-ordered zone with t = 0..4 and v = t * t.
    static std::shared_ptr<kernel::DataSet> makeSeries();

    /// A frame on the page, called @p name.
    void openFrames(std::vector<std::pair<std::string, std::shared_ptr<kernel::DataSet>>> const& contents);
    void openFlow() { openFrames({{"flow", makeFlow()}}); }

    /// A picture of these logical pixels that is all blue.
    static app::PagePicture blueSquares(QSize const& size);

    /// What the window has in its middle: a plain widget that counts how often it is to fit.
    virtual app::CentralView makeView();

    /// What reads the files that the window opens.
    virtual app::DocumentController::FileReader makeReader();

    /// Makes the window and shows it as the active one.
    app::MainWindow& showWindow();

    /// Runs what waits for idle.
    static void settle();

    QAction& action(char const* name);

    /// Presses @p key in the modal window that the next event loop brings up, once it is the active one; notes the window's object name.
    void answerModal(Qt::Key key, QString* objectName = nullptr, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    /// Writes a file into the test's folder. @return its path
    QString writeFile(QString const& name, QByteArray const& content);

    static QByteArray goodTable() { return "t,v\n0,0\n1,1\n2,4\n"; }

    kernel::Session& session;
    QTemporaryDir folder;
    std::vector<std::string> messages;  ///< errors and informations, in order
    int fits = 0;                       ///< calls of the view's fit
    app::PictureOptions pictureOptions; ///< with which the view was asked for a picture last
    QStringList openings;               ///< what the view was told to say of files that are being opened
    QWidget* middle = nullptr;
    std::unique_ptr<app::MainWindow> window;
};

} // namespace veldraw::tests
