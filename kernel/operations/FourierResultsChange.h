#pragma once

#include "kernel/data/FieldReplacement.h"
#include "kernel/data/VariableAddition.h"
#include "kernel/data/ZoneAddition.h"

namespace veldraw::kernel {

/// Puts the results of a Fourier transform into a data set: new variables, new zones, and other values in zones that there are. All
/// of it is there before the first event is sent. Frequencies may be shared by fields of all three kinds, which come and go together.
class FourierResultsChange : public Change
{
public:
    /// What an existing zone gets beside its fields.
    struct ZoneState
    {
        std::shared_ptr<Zone> zone;
        std::int64_t points;
        AuxiliaryData notes;
    };

    struct Parts
    {
        std::vector<std::shared_ptr<Variable>> variables;     ///< new ones
        std::vector<VariableAddition::OwnField> newFields;    ///< of these in existing zones
        std::vector<ZoneAddition::Copy> zones;                ///< new ones
        std::vector<FieldReplacement::ZonePart> replacements; ///< of existing variables in existing zones
        std::vector<ZoneState> states;                        ///< of existing zones
        NumberSet replacedZones;                              ///< those of the replacements, and their variables
        NumberSet replacedVariables;
        TransformRecord record; ///< of the data set, afterwards
    };

    /// @throws std::bad_alloc
    FourierResultsChange(EventHub& hub, std::shared_ptr<DataSet> dataSet, Parts parts);

    void apply() noexcept override;
    void revert() noexcept override;
    HeldMemory held() const noexcept override;

private:
    void prepareEvents(Parts const& parts);
    static std::int64_t bytesOfResults(Parts const& parts);
    void exchangeStates() noexcept;
    void tell(std::vector<StateChangeEvent> const& events) noexcept;

    EventHub& m_hub;
    EventHub m_silent; // of the parts, which are told together
    std::shared_ptr<DataSet> m_dataSet;
    std::vector<StateChangeEvent> m_events;
    std::vector<StateChangeEvent> m_eventsBack;
    std::vector<ZoneState> m_states;
    TransformRecord m_record;
    std::int64_t m_bytesOfResults; // each values once
    bool m_areOut = true;
    VariableAddition m_variables;
    ZoneAddition m_zones;
    FieldReplacement m_fields;
};

} // namespace veldraw::kernel
