#pragma once

#include "app/import/Importer.h"

#include <QString>

#include <functional>

class QWidget;

namespace veldraw::app {

/// Reads one file without freezing the window: the reader works on a thread of its own, and after half a second a progress
/// window with Cancel comes up. The application's lock is held meanwhile, so nothing else changes what is open.
class ImportJob
{
public:
    using Progress = std::function<bool(double)>;
    using Reader = std::function<ImportResult(QString const&, Progress const&)>;

    /// @param reader importFile() in the program
    explicit ImportJob(Reader reader);

    /// Returns when the file is read. @throws ImportError, ImportCancelled or what else the reader throws
    ImportResult run(QString const& path, QWidget* parent) const;

private:
    Reader m_reader;
};

} // namespace veldraw::app
