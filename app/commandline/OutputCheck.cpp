#include "app/commandline/OutputCheck.h"

#include <QFileDevice>

namespace veldraw::app {

QString outputProblem(QTextStream& out)
{
    out.flush();
    if (out.status() == QTextStream::Ok)
        return {};
    auto const* const file = qobject_cast<QFileDevice const*>(out.device());
    return QStringLiteral("the output could not be written: %1")
        .arg(file ? file->errorString() : QStringLiteral("unknown error"));
}

} // namespace veldraw::app
