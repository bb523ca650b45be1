#include "tests/app/recovery/ScriptedWork.h"

#include "app/export/Exporter.h"
#include "host/KernelBridge.h"
#include "kernel/frames/Page.h"

#include <cmath>
#include <cstring>
#include <map>
#include <random>

namespace veldraw::tests {

namespace {

constexpr int countI = 12;
constexpr int countJ = 8;

kernel::Field fieldOfValues(FieldDataType_e type, double first, double step)
{
    auto const buffer = kernel::Buffer::allocate(type, countI * countJ);
    for (int n = 0; n < countI * countJ; ++n)
        buffer->setValue(n, first + step * n + std::sin(0.7 * n));
    return kernel::Field(std::make_shared<kernel::ShareGroup>(buffer), ValueLocation_Nodal);
}

std::shared_ptr<kernel::Zone> zoneAt(std::string const& name, double first)
{
    auto zone = std::make_shared<kernel::Zone>(name, ZoneType_Ordered, countI, countJ, 1);
    for (double const step : {1.0, 0.25, 0.0})
        zone->fields.push_back(fieldOfValues(FieldDataType_Double, first, step));
    zone->fields.push_back(fieldOfValues(FieldDataType_Float, 100 * first, 0.5));
    return zone;
}

/// A sum over bytes in which their order counts.
class Digest
{
public:
    void add(void const* bytes, std::size_t count)
    {
        for (std::size_t n = 0; n < count; ++n)
            m_sum = (m_sum ^ static_cast<unsigned char const*>(bytes)[n]) * 1099511628211U;
    }
    void add(std::string const& text)
    {
        add(static_cast<std::int64_t>(text.size()));
        add(text.data(), text.size());
    }
    void add(std::int64_t number) { add(&number, sizeof number); }
    std::uint64_t sum() const { return m_sum; }

private:
    std::uint64_t m_sum = 14695981039346656037U;
};

void addField(Digest& digest, kernel::Field const& field, std::map<void const*, std::int64_t>& groups)
{
    digest.add(static_cast<std::int64_t>(field.type()));
    digest.add(static_cast<std::int64_t>(field.location()));
    digest.add(groups.emplace(field.group().get(), static_cast<std::int64_t>(groups.size())).first->second);
    auto const buffer = field.isPassive() || !field.isLoaded() ? nullptr : field.group()->buffer();
    for (std::int64_t n = 0; buffer && n < buffer->size(); ++n) {
        double const value = buffer->value(n);
        digest.add(&value, sizeof value);
    }
}

void addDataSet(Digest& digest, kernel::DataSet const& dataSet)
{
    std::map<void const*, std::int64_t> groups;
    digest.add(dataSet.title());
    for (auto const& variable : dataSet.variables())
        digest.add(variable->name);
    for (int zone = 1; zone <= dataSet.zoneCount(); ++zone) {
        digest.add(dataSet.zone(zone)->name);
        for (kernel::Field const& field : dataSet.zone(zone)->fields)
            addField(digest, field, groups);
    }
}

} // namespace

ScriptedWork::ScriptedWork()
    : m_session(kernel::Session::instance())
    , m_stream(&m_told)
    , m_files(m_session, m_stream, m_options)
    , m_operations(app::programOperations(this))
    , m_runner(m_session, m_operations)
{
    host::KernelBridge::install();
}

ScriptedWork::~ScriptedWork() = default;

bool ScriptedWork::run(std::string const& line)
{
    if (line == "undo" || line == "redo")
        return line == "undo" ? m_session.undo() : m_session.redo();
    try {
        return m_runner.run(*operations::readCommand(line)).isDone;
    } catch (operations::CommandError const&) {
        return false;
    }
}

void ScriptedWork::open(QStringList const& paths, bool inNewFrames)
{
    m_files.open(paths, inNewFrames);
    if (!inNewFrames)
        m_session.history().setClean();
}

void ScriptedWork::save(QString const& path, bool overwrite)
{
    m_files.save(path, overwrite);
    m_session.history().setClean(m_session.activeDataSet()->id());
    m_session.journal().add(app::saveCommand(path, overwrite).text(), m_session.pages());
}

void ScriptedWork::savePicture(QString const&, app::PictureOptions const&)
{
    throw std::logic_error("There are no pictures here.");
}

void writeSampleFile(std::string const& path)
{
    kernel::DataSet dataSet;
    for (char const* name : {"X", "Y", "Z", "p"})
        dataSet.addVariable(std::make_shared<kernel::Variable>(name));
    dataSet.addZone(zoneAt("left", 1));
    dataSet.addZone(zoneAt("right", 2));
    app::exportDataSet(dataSet, QString::fromStdString(path));
}

std::uint64_t digestOfSession()
{
    Digest digest;
    for (auto const& frame : kernel::Session::instance().activePage()->frames) {
        digest.add(frame->name);
        if (frame->dataSet)
            addDataSet(digest, *frame->dataSet);
    }
    return digest.sum();
}

namespace {

/// One of the usual steps; @p number makes it another one each time.
std::string usualStep(unsigned kind, int number)
{
    std::string const zone = std::to_string(1 + number % 2);
    std::string const counted = std::to_string(number);
    switch (kind) {
    case 0:
        return "rename-zone zone=" + zone + " name=\"zone, step " + counted + "\"";
    case 1:
        return "smooth zone=" + zone + " variable=4 passes=2";
    case 2:
        return "rotate-zones zones=" + zone + " angle=" + counted + ".5 axis=Z";
    case 3:
        return "set-title title=\"after \\\"" + counted + "\\\"\"";
    case 4:
        return "undo";
    case 5:
        return "redo";
    default:
        return "set-value zone=" + zone + " variable=4 index=" + std::to_string(1 + number % 96) + " value=0." +
               counted + "7" + (number % 3 == 0 ? " shared=yes" : "");
    }
}

std::string rareStep(int number, std::string const& secondFile, std::string const& folder)
{
    switch (number % 100) {
    case 20:
        return "duplicate-zones zones=2";
    case 40:
        return number < 100 ? "open files=" + secondFile + " new-frames=yes" : "activate-frame frame=1";
    case 60:
        return "activate-frame frame=2";
    case 70:
        return "mirror-zones zones=1 plane=X";
    case 90:
        return "save file=" + folder + "/saved.vtm overwrite=yes";
    default:
        return {};
    }
}

} // namespace

std::vector<std::string> longWork(std::string const& file, std::string const& secondFile, std::string const& folder)
{
    std::vector<std::string> lines{"open files=" + file};
    std::mt19937 dice(20);
    for (int number = 1; number < 400; ++number) {
        unsigned const kind = static_cast<unsigned>(dice() % 12U);
        std::string const rare = rareStep(number, secondFile, folder);
        lines.push_back(rare.empty() ? usualStep(kind, number) : rare);
    }
    return lines;
}

} // namespace veldraw::tests
