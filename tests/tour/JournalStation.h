#pragma once

#include "tests/tour/TourContext.h"

namespace veldraw::tests {

/// What was done by hand is done again by the saved journal, without a window, and the two saved files are the same.
class JournalStation
{
public:
    /// @param out folder for the files
    JournalStation(TourContext& context, QString out);

    void run();

private:
    void duplicate();
    void smooth();
    void deleteVariable();
    void renameAndUndo();
    void lookAtJournal();
    void save();
    void runAgain();
    bool areFoldersEqual() const;

    QString path(char const* name) const { return m_out + QLatin1Char('/') + QString::fromLatin1(name); }

    TourContext& m_tour;
    QString m_out;
};

} // namespace veldraw::tests
