#pragma once

#include "dialogs/datasetinfo/DataSetInfoDialog.h"
#include "tests/tour/TourContext.h"

namespace veldraw::tests {

/// Looks at what is known of a file whose values were not read, renames and loads by the window, goes through the moments of a
/// transient result, and to a frame without data.
class DataSetInfoStation
{
public:
    /// @param file a sample of one zone
    /// @param transientFile the sample with moments
    DataSetInfoStation(TourContext& context, QString file, QString transientFile);

    void run();

private:
    using Dialog = dialogs::data::DataSetInfoDialog;

    bool openOnDeferredFile();
    void lookAtZoneAndVariable();
    void rename();
    void loadFromThere();
    void giveATitle();
    void goThroughMoments();
    void lookAtAuxiliaryData();
    void goWhereNoDataAre();

    /// Goes to a page as a person does, by a click on its tab.
    void goTo(int page);
    QString field(char const* name) const;
    QString label(char const* name) const;

    TourContext& m_tour;
    QString m_file;
    QString m_transientFile;
    Dialog* m_dialog = nullptr;
};

} // namespace veldraw::tests
