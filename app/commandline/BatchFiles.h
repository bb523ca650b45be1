#pragma once

#include "app/commandline/CommandLineOptions.h"
#include "app/commands/DataFiles.h"

#include <QTextStream>

namespace veldraw::app {

/// Opens and saves files for a batch, and makes pictures. What there is to say besides failures goes to the stream for errors, "veldraw: " first.
class BatchFiles : public DataFiles
{
public:
    /// @param options what they say on reading holds for all files
    BatchFiles(kernel::Session& session, QTextStream& err, CommandLineOptions const& options);

    void savePicture(QString const& path, PictureOptions const& options) override;

protected:
    void tell(QString const& text) override;
    QString adviceToFollow() const override { return QStringLiteral("They are read with --follow-paths."); }
    QString adviceToOverwrite() const override { return QStringLiteral("Give --overwrite to allow that."); }

private:
    QTextStream& m_err;
};

} // namespace veldraw::app
