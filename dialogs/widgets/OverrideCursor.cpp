#include "dialogs/widgets/OverrideCursor.h"

#include <QApplication>
#include <QCursor>

namespace veldraw::ui {

OverrideCursor::OverrideCursor(Qt::CursorShape shape)
{
    QApplication::setOverrideCursor(QCursor(shape));
}

OverrideCursor::~OverrideCursor()
{
    QApplication::restoreOverrideCursor();
}

} // namespace veldraw::ui
