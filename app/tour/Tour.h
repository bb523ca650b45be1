#pragma once

#include "app/tour/TourReport.h"
#include "app/tour/UserDriver.h"
#include "app/window/MainWindow.h"

#include <QString>

class QListView;
class QPushButton;

namespace veldraw::app {

/// Uses the program as a person would: opens a sample, looks at it, runs each dialog by mouse and by keyboard, takes changes
/// back, asks for help, saves. Every step is checked against what a person would expect to see.
class Tour
{
public:
    /// @param samples folder of the bundled samples; @param out folder for pictures and results
    Tour(MainWindow& window, QString samples, QString out);

    TourReport const& run();

private:
    void openSamples();
    void lookAtPlots();
    void deleteVariableByMouse();
    void refuseDeletions();
    void deleteVariableByKeyboard();
    void undoAndRedo();
    void askForHelp();
    void saveResult();

    void openDeleteDialog();
    QListView* variableList() const;
    QPushButton* deleteButton() const;
    QString variableNames() const;
    QString selectedRows() const;
    QAction* action(char const* name) const;
    int coloursOnPage();
    void activateWindow(QWidget& widget);

    MainWindow& m_window;
    QString m_samples;
    QString m_out;
    UserDriver m_user;
    TourReport m_report;
    QString m_namesAtStart;
};

} // namespace veldraw::app
