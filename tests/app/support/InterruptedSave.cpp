#include "tests/app/support/InterruptedSave.h"

#include "app/files/PathChecks.h"
#include "app/window/PictureFile.h"
#include "kernel/data/DataSet.h"

#include <QImage>

#include <cstring>
#include <filesystem>
#include <gtest/gtest.h>
#include <regex>
#include <set>
#include <sys/wait.h>
#include <unistd.h>

namespace veldraw::tests {

namespace {

std::shared_ptr<kernel::DataSet> dataOf(SavedState const& state)
{
    auto dataSet = std::make_shared<kernel::DataSet>();
    for (char const* name : {"X", "Y", "p"})
        dataSet->addVariable(std::make_shared<kernel::Variable>(name));
    for (int n = 0; n < state.zones; ++n) {
        auto zone =
            std::make_shared<kernel::Zone>("zone " + std::to_string(n + 1), ZoneType_Ordered, state.points, 1, 1);
        for (int variable = 0; variable < 3; ++variable) {
            auto const values = kernel::Buffer::allocate(FieldDataType_Double, state.points);
            for (int i = 0; i < state.points; ++i)
                values->setValue(i, state.mark + 0.1 * i + 1000.0 * n + variable);
            zone->fields.emplace_back(std::make_shared<kernel::ShareGroup>(values), ValueLocation_Nodal);
        }
        dataSet->addZone(zone);
    }
    return dataSet;
}

void savePicture(std::string const& path, SavedState const& state)
{
    QImage picture(40, 10 + state.points % 50, QImage::Format_RGB32);
    picture.fill(static_cast<unsigned>(state.mark));
    QString const problem = app::writePicture(picture, QString::fromStdString(path));
    if (!problem.isEmpty())
        throw app::ExportError("\"" + path + "\": " + problem.toStdString());
}

// What the index names, in its order.
std::vector<std::string> piecesIn(std::string const& index)
{
    static std::regex const file("file=\"([^\"]*)\"");
    std::vector<std::string> pieces;
    for (std::sregex_iterator found(index.begin(), index.end(), file); found != std::sregex_iterator(); ++found)
        pieces.push_back((*found)[1]);
    return pieces;
}

std::string fileOrNothing(std::string const& path)
{
    return std::filesystem::is_regular_file(path) ? contentOf(path) : "missing";
}

std::string tablesFolder(std::string const& file)
{
    return app::baseNameOf(file) + "_tables";
}

std::vector<std::string> tablesIn(TemporaryFolder const& folder, std::string const& name)
{
    std::set<std::string> names;
    if (std::filesystem::is_directory(folder.path(name))) {
        for (auto const& entry : std::filesystem::directory_iterator(folder.path(name)))
            names.insert(name + "/" + entry.path().filename().string());
    }
    return {names.begin(), names.end()};
}

std::string joined(std::set<std::string> const& names)
{
    std::string text;
    for (std::string const& name : names)
        text += (text.empty() ? "" : " ") + name;
    return text;
}

} // namespace

SaveKind::SaveKind(std::string file)
    : m_file(std::move(file))
{
}

bool SaveKind::takesSeveralZones() const
{
    return app::extensionOf(m_file) == "vtm" || app::extensionOf(m_file) == "csv";
}

void SaveKind::save(TemporaryFolder const& folder, SavedState const& state) const
{
    if (app::extensionOf(m_file) == "png")
        savePicture(folder.path(m_file), state);
    else
        app::exportDataSet(*dataOf(state), QString::fromStdString(folder.path(m_file)), app::Replacing::AllNeeded);
}

std::string SaveKind::content(TemporaryFolder const& folder) const
{
    bool const isThere = std::filesystem::exists(folder.path(m_file));
    if (app::extensionOf(m_file) == "csv") {
        std::string text;
        for (std::string const& table : tablesIn(folder, tablesFolder(m_file)))
            text += table + ":" + contentOf(folder.path(table));
        return text.empty() ? "none" : text;
    }
    if (!isThere)
        return "none";
    std::string const own = contentOf(folder.path(m_file));
    if (app::extensionOf(m_file) != "vtm")
        return own;
    std::string text = std::regex_replace(own, std::regex("file=\"[^\"]*\""), "");
    for (std::string const& piece : piecesIn(own))
        text += fileOrNothing(folder.path(piece));
    return text;
}

std::string SaveKind::belongings(TemporaryFolder const& folder) const
{
    std::set<std::string> names;
    if (app::extensionOf(m_file) == "csv") {
        for (std::string const& table : tablesIn(folder, tablesFolder(m_file)))
            names.insert({tablesFolder(m_file), table});
        return joined(names);
    }
    names.insert(m_file);
    if (app::extensionOf(m_file) == "vtm") {
        names.insert(app::baseNameOf(m_file));
        for (std::string const& piece : piecesIn(contentOf(folder.path(m_file))))
            names.insert(piece);
    }
    return joined(names);
}

namespace {

// What the process tells before it ends, in a pipe.
struct Report
{
    int calls = 0;
    bool isSaved = false;
    bool wasDisturbed = false;
    char call[20] = {};
    char message[2000] = {};
};

void copyText(std::string const& text, char* to, std::size_t size)
{
    std::strncpy(to, text.c_str(), size - 1);
}

[[noreturn]] void saveAndReport(int pipe, SaveKind const& kind, TemporaryFolder const& folder, SavedState const& state,
                                Disturbance const& disturbance)
{
    Report report;
    disturbCalls(disturbance);
    try {
        kind.save(folder, state);
        report.isSaved = true;
    } catch (std::exception const& error) {
        copyText(error.what(), report.message, sizeof report.message);
    }
    report.calls = endOfDisturbance();
    report.wasDisturbed = wasDisturbed();
    copyText(disturbedCall(), report.call, sizeof report.call);
    bool const isTold = ::write(pipe, &report, sizeof report) == static_cast<ssize_t>(sizeof report);
    ::_exit(isTold ? 0 : 1);
}

} // namespace

SaveOutcome saveDisturbed(SaveKind const& kind, TemporaryFolder const& folder, SavedState const& state,
                          Disturbance const& disturbance)
{
    int pipe[2] = {};
    EXPECT_EQ(::pipe(pipe), 0);
    pid_t const process = ::fork();
    if (process == 0)
        saveAndReport(pipe[1], kind, folder, state, disturbance);
    ::close(pipe[1]);
    Report report;
    bool const isWhole = ::read(pipe[0], &report, sizeof report) == static_cast<ssize_t>(sizeof report);
    ::close(pipe[0]);
    int status = 0;
    EXPECT_EQ(::waitpid(process, &status, 0), process);
    if (!isWhole) {
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << "it ended with status " << status;
        return {SaveOutcome::End::Killed, {}, true, {}, 0};
    }
    return {report.isSaved ? SaveOutcome::End::Saved : SaveOutcome::End::Refused, report.message, report.wasDisturbed,
            report.call, report.calls};
}

bool isInTheUsersWords(std::string const& message)
{
    static std::regex const quoted("\"[^\"]*\""); // names can hold anything
    std::string const words = std::regex_replace(message, quoted, "");
    for (char const* other : {"vtk", "0x", "filesystem", "std::", "errno", "Algorithm", "terminate", "what()"}) {
        if (words.find(other) != std::string::npos)
            return false;
    }
    return words.size() > std::string("Cannot save : .").size();
}

} // namespace veldraw::tests
