#include "dialogs/spreadsheet/ZoneVarTableModelAbstract.h"

#include "dialogs/bindings/ScopedExitAction.h"
#include "dialogs/spreadsheet/ValueWrite.h"
#include "platform/exception/IOException.h"
#include "platform/exception/InterruptedException.h"
#include "platform/vdsdkbase/StateChange.h"
#include "platform/vdsdkbase/VelUtilDataValue.h"
#include "platform/vdsdkbase/VelUtilQuery.h"
#include "platform/vdsdkbase/VelUtilZone.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "platform/vdsdkcommon/ShortestText.h"
#include "platform/vdsdkcommon/StateChangeEventObservable.h"
#include "platform/vdtoolbox/StateChangeEventInterface.h"
#include "platform/vdtoolbox/StateChangeListenerInterface.h"

#include <boost/lexical_cast.hpp>

#include <optional>

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

using integration::StateChangeEventObservable;
using toolbox::StateChangeEventInterface;

namespace {

void loadDimensions(int zone, long long& i, long long& j, long long& k)
{
    VelUtilZoneGetIJK(zone, &i, &j, &k);
    if (i != -1 && j != -1 && k != -1)
        return;
    if (VelUtilInterruptIsSet())
        throw InterruptedException();
    throw IOException("Failed to load zone metrics.");
}

// A question that fails once is asked again; what is no type, such as for a zone that has gone, is taken for none.
std::optional<FieldDataType_e> knownFieldDataType(int zone, int variable)
{
    constexpr int tries = 2;
    for (int attempt = 0; attempt < tries; ++attempt) {
        int const type = VelUtilDataValueGetType(zone, variable);
        if (type >= FieldDataType_Float && type <= FieldDataType_Bit)
            return static_cast<FieldDataType_e>(type);
    }
    return std::nullopt;
}

} // namespace

/// Tells the table's listeners when somebody else changes its values.
class ZoneVarTableModelAbstract::StateChangeListener : public toolbox::StateChangeListenerInterface
{
public:
    explicit StateChangeListener(ZoneVarTableModelAbstract& model)
        : m_model(model)
    {
    }

    void stateChanged(StateChangeEventInterface const& event) override
    {
        if (event.kind() == StateChange_ValuesAltered && concernsTable(event))
            m_model.notifyOfDataChanged();
    }

private:
    // An event that doesn't say what it is about may be about anything.
    bool concernsTable(StateChangeEventInterface const& event) const
    {
        if (!event.hasZones() || !event.hasVars())
            return true;
        for (int const variable : event.vars().members()) {
            if (m_model.m_variables.isMember(variable))
                return true;
        }
        return false;
    }

    ZoneVarTableModelAbstract& m_model;
};

ZoneVarTableModelAbstract::ZoneVarTableModelAbstract(int zone, toolbox::Set const& variables,
                                                     bool alterInAllSharedZones, ValueLocation_e location)
    : m_zone(zone)
    , m_variables(variables)
    , m_alterInAllSharedZones(alterInAllSharedZones)
    , m_location(location)
    , m_listener(std::make_unique<StateChangeListener>(*this))
{
    loadDimensions(m_zone, m_iMax, m_jMax, m_kMax);
    m_zoneOrder = getZoneOrder(m_zone); // not before: deferred dimensions have no order
    StateChangeEventObservable::getInstance().addListener(m_listener.get());
}

ZoneVarTableModelAbstract::~ZoneVarTableModelAbstract()
{
    StateChangeEventObservable::getInstance().removeListener(m_listener.get());
}

unsigned long long ZoneVarTableModelAbstract::columnCount() const
{
    return dataSetAndFrameAreAvailable() ? modelColumnCount() : 0;
}

unsigned long long ZoneVarTableModelAbstract::rowCount() const
{
    return dataSetAndFrameAreAvailable() ? modelRowCount() : 0;
}

std::string ZoneVarTableModelAbstract::columnName(unsigned long long column) const
{
    return columnCount() == 0 ? std::string() : variableNameFormattedForAliases(variableNumber(column + 1));
}

std::string ZoneVarTableModelAbstract::rowName(unsigned long long row) const
{
    return rowCount() == 0 ? std::string() : std::to_string(row + 1);
}

bool ZoneVarTableModelAbstract::isEditable(ModelIndex const&) const
{
    return true;
}

std::string ZoneVarTableModelAbstract::shortestStr(ModelIndex const& index) const
{
    int const variable = variableNumber(index.column + 1);
    if (!VelUtilDataValueIsLoaded(m_zone, variable))
        return getStr(index);
    AppLock const lock(AppLock::RecordAsUsual);
    double const value = VelUtilDataValueGetByZoneVar(m_zone, variable, valueOffset(index) + 1);
    std::string text;
    // Without its type, all digits of the number: more than needed, but the same number.
    appendShortest(text, value, knownFieldDataType(m_zone, variable).value_or(FieldDataType_Double));
    return text;
}

std::string ZoneVarTableModelAbstract::getStr(ModelIndex const& index) const
{
    int const variable = variableNumber(index.column + 1);
    if (!VelUtilDataValueIsLoaded(m_zone, variable))
        return "Not Loaded";
    AppLock const lock(AppLock::RecordAsUsual);
    long long const offset = valueOffset(index);
    int const type = VelUtilDataValueGetType(m_zone, variable);
    double const value = VelUtilDataValueGetByZoneVar(m_zone, variable, offset + 1);
    if (type == FieldDataType_Float)
        return boost::lexical_cast<std::string>(static_cast<float>(value));
    return boost::lexical_cast<std::string>(value);
}

bool ZoneVarTableModelAbstract::setStr(ModelIndex const& index, std::string const& text)
{
    int const variable = variableNumber(index.column + 1);
    if (!VelUtilDataValueIsLoaded(m_zone, variable))
        return false;
    AppLock const lock(AppLock::RecordAsUsual);
    ValueWrite write(m_zone, variable, valueOffset(index), text, m_alterInAllSharedZones);

    // Listeners hear of the table's own edit as the change of one cell, not of the whole table. So the table does not listen to
    // the kernel meanwhile, and does so again however the edit ends.
    ScopedExitAction const listenAgain(
        [listener = m_listener.get()] { StateChangeEventObservable::getInstance().addListener(listener); });
    bool const isWritten =
        write.run([this] { StateChangeEventObservable::getInstance().removeListener(m_listener.get()); });
    if (isWritten)
        notifyOfItemChanged(index);
    return isWritten;
}

FieldDataType_e ZoneVarTableModelAbstract::fieldDataType(ModelIndex const& index) const
{
    if (auto const type = knownFieldDataType(m_zone, variableNumber(index.column + 1)))
        return *type;
    throw IOException("Failed to get the type of the values.");
}

int ZoneVarTableModelAbstract::variableNumber(unsigned long long column) const
{
    return m_variables.members().at(column - 1);
}

long long ZoneVarTableModelAbstract::valueOffset(ModelIndex const& index) const
{
    return static_cast<long long>(index.row);
}

unsigned long long ZoneVarTableModelAbstract::cellCount(long long dimension) const
{
    bool const isReduced = m_location == ValueLocation_CellCentered && dimension > 1;
    return static_cast<unsigned long long>(isReduced ? dimension - 1 : dimension);
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
