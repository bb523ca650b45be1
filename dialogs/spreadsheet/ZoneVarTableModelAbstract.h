#pragma once

#include "dialogs/models/TableModelAbstract.h"
#include "platform/vdsdkbase/VelUtilTypes.h"
#include "platform/vdtoolbox/Set.h"

#include <memory>
#include <string>

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

/// Values of one zone as a table that can be edited. A cell stands for a variable and an offset in its array; concrete
/// tables say which.
///
/// The table holds no values: a cell's text is read from the kernel when a view asks, an edit is written straight through,
/// and nothing costs in proportion to the zone. Values that are not in memory read "Not Loaded" and are not fetched.
///
/// Zone, variables and dimensions are those of the construction; who wants others makes another table. While the table
/// lives it tells its listeners when somebody else changes values of its variables, in whatever zone.
class ZoneVarTableModelAbstract : public TableModelAbstract
{
public:
    /// Asks for the zone's dimensions in earnest, so deferred ones are loaded.
    /// @param zone one-based number
    /// @param variables whose changes the table follows
    /// @param alterInAllSharedZones whether an edit reaches the zones that share the values, too
    /// @param location of the values that the table shows
    /// @throws InterruptedException when the user stopped the loading of the dimensions
    /// @throws IOException when they cannot be had
    ZoneVarTableModelAbstract(int zone, toolbox::Set const& variables, bool alterInAllSharedZones,
                              ValueLocation_e location);
    ~ZoneVarTableModelAbstract() override;

    /// 0 while there is no frame with a data set, as rowCount().
    unsigned long long columnCount() const override;
    unsigned long long rowCount() const override;
    std::string columnName(unsigned long long column) const override;
    std::string rowName(unsigned long long row) const override;
    /// True.
    bool isEditable(ModelIndex const& index) const override;
    /// All digits that the value has.
    std::string getStr(ModelIndex const& index) const override;
    /// Writes a number; a text that is none writes 0. The user is told when the kernel refuses. Values that are not loaded
    /// are left alone without a word.
    bool setStr(ModelIndex const& index, std::string const& text) override;

    /// As short as a text can be that reads back as the very value; what getStr() says where there is none.
    std::string shortestStr(ModelIndex const& index) const;
    /// One-based number of the zone that the table was made for.
    int zone() const { return m_zone; }
    /// The variables whose changes the table follows.
    toolbox::Set const& variables() const { return m_variables; }
    /// How the cell's value is stored. @throws IOException the kernel does not say
    virtual FieldDataType_e fieldDataType(ModelIndex const& index) const;
    /// The kernel's number of the variable of a one-based column.
    virtual int variableNumber(unsigned long long column) const;
    /// Zero-based offset of the cell's value in its variable's array.
    virtual long long valueOffset(ModelIndex const& index) const;
    /// Sizes whether or not there is a data set.
    virtual unsigned long long modelColumnCount() const = 0;
    virtual unsigned long long modelRowCount() const = 0;

protected:
    class StateChangeListener;

    /// Points along a dimension, or cells; a dimension of 1 has one layer of cells.
    unsigned long long cellCount(long long dimension) const;

    int const m_zone;
    toolbox::Set const m_variables;
    bool const m_alterInAllSharedZones;
    ValueLocation_e const m_location;
    ZoneOrder_e m_zoneOrder = ZoneOrder_I;
    long long m_iMax = 0;
    long long m_jMax = 0;
    long long m_kMax = 0;

private:
    std::unique_ptr<StateChangeListener> const m_listener;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
