#include "dialogs/models/NamedNumbersListModelAbstract.h"

#include "dialogs/models/ReadingAsTold.h"
#include "platform/vdsdkbase/VelUtilFrame.h"

#include <boost/shared_ptr.hpp>

#include <cstddef>
#include <utility>

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

namespace {

// At each changed row a list view reads its whole selection; for more rows than this one reset is cheaper.
constexpr std::size_t mostRowsToldOneByOne = 100;

} // namespace

int NamedNumbers::size() const
{
    return static_cast<int>(numbers.size());
}

std::string NamedNumbers::text(int row) const
{
    std::size_t const place = static_cast<std::size_t>(row);
    return std::to_string(numbers.at(place)) + ": " + names.at(place);
}

std::vector<int> NamedNumbers::rowsNamedOtherwise(NamedNumbers const& other) const
{
    std::vector<int> rows;
    for (std::size_t place = 0; place < names.size(); ++place) {
        if (names[place] != other.names.at(place))
            rows.push_back(static_cast<int>(place));
    }
    return rows;
}

NamedNumbersListModelAbstract::NamedNumbersListModelAbstract()
    : m_reader([this] { readAnew(); })
{
}

NamedNumbersListModelAbstract::~NamedNumbersListModelAbstract() = default;

int NamedNumbersListModelAbstract::size() const
{
    if (!m_reader.isDue() || ReadingAsTold::isOn() || VelUtilFrameGetUniqueID() != m_frameOfChange)
        return m_shown.size();
    boost::shared_ptr<NamedNumbersListModelAbstract const> const aliveWhileItTells = weak_from_this().lock();
    m_reader.catchUp();
    return m_shown.size();
}

void NamedNumbersListModelAbstract::sourceChanged() const
{
    boost::shared_ptr<NamedNumbersListModelAbstract const> const aliveWhileItTells = weak_from_this().lock();
    m_reader.sourceChanged();
    if (m_reader.isDue())
        m_frameOfChange = VelUtilFrameGetUniqueID();
}

void NamedNumbersListModelAbstract::readNow() const
{
    m_reader.readNow();
}

void NamedNumbersListModelAbstract::readAnew() const {}

int NamedNumbersListModelAbstract::get(int index) const
{
    return m_shown.numbers.at(static_cast<std::size_t>(index));
}

std::string NamedNumbersListModelAbstract::getStr(int index) const
{
    return m_shown.text(index);
}

NamedNumbers const& NamedNumbersListModelAbstract::shown() const
{
    return m_shown;
}

void NamedNumbersListModelAbstract::show(NamedNumbers&& snapshot) const
{
    // A listener may release this list, for instance by giving a proxy another one.
    boost::shared_ptr<NamedNumbersListModelAbstract const> const aliveWhileItTells = weak_from_this().lock();
    NamedNumbers const before = std::exchange(m_shown, std::move(snapshot));
    if (m_shown.numbers != before.numbers) {
        signalDataChanged();
        return;
    }
    std::vector<int> const rows = m_shown.rowsNamedOtherwise(before);
    if (rows.size() > mostRowsToldOneByOne) {
        signalDataChanged();
        return;
    }
    for (int const row : rows) {
        // A listener may have changed what the list shows.
        if (row < m_shown.size())
            signalItemChanged(row);
    }
}

void NamedNumbersListModelAbstract::showName(int row, std::string&& name) const
{
    std::string& present = m_shown.names.at(static_cast<std::size_t>(row));
    if (present == name)
        return;
    present = std::move(name);
    signalItemChanged(row);
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
