#pragma once

#include "tests/manual/GalleryRow.h"

#include <QString>

#include <functional>
#include <map>

class QAbstractButton;
class QListView;

namespace veldraw::tests {

class GalleryWindow;

/// Uses each control of the gallery once, by clicks and keys, and compares what is then to be read beside it; sets all
/// back and compares the controls with their first look. It says what it finds on standard output.
class GalleryCheck
{
public:
    explicit GalleryCheck(GalleryWindow& window);

    /// @return whether everything was right
    bool run();

private:
    void driveText();
    void driveNumbers();
    void driveChoices();
    void driveKernel();
    void checkStartValues();
    void checkThatEachWasUsed();

    /// Runs the action and compares the value beside a control.
    void expect(char const* control, char const* value, std::function<void()> const& action);
    void compare(QString const& what, QString const& found, QString const& expected);

    void type(char const* field, char const* text);
    void click(char const* button);
    void choose(char const* list, int row);
    void press(char const* control, Qt::Key key);
    QString rowsOf(char const* list) const;

    template <typename Widget>
    Widget& find(char const* name) const;

    GalleryWindow& m_window;
    std::map<QString, QString> m_firstValues;
    std::map<QString, QString> m_firstLooks;
    std::map<QString, bool> m_wasUsed;
    int m_failures = 0;
};

} // namespace veldraw::tests
