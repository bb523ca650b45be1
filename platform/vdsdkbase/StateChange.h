#pragma once

/// @file
/// The kinds of state-change events. What each carries stands behind it; the events of one operation follow each other
/// after the operation, on the calling thread, before the kernel's function returns.

#ifdef __cplusplus
extern "C" {
#endif

typedef enum
{
    StateChange_ValuesAltered = 0,        ///< zones, variables
    StateChange_VariablesAdded = 1,       ///< variables
    StateChange_VariablesDeleted = 2,     ///< variables (the numbers they had)
    StateChange_VariablesEnabled = 3,     ///< variables (enabled or disabled)
    StateChange_ZonesAdded = 4,           ///< zones
    StateChange_ZonesDeleted = 5,         ///< zones (the numbers they had)
    StateChange_ZonesEnabled = 6,         ///< zones (enabled, disabled, or another type, strand or time)
    StateChange_Style = 7,                ///< style parameters, the top-level name first
    StateChange_FrameCreated = 8,         ///< frame
    StateChange_FrameDeleted = 9,         ///< frame; a new active frame follows
    StateChange_NewActiveFrame = 10,      ///< frame
    StateChange_FrameMovedOrRenamed = 11, ///< frame
    StateChange_FrameDataSet = 12,        ///< frame; its data set was replaced, attached or appended to
    StateChange_DataSetTitle = 13,        ///<
    StateChange_DataSetLock = 14,         ///<
    StateChange_KernelGoesDown = 15,      ///< the last event of a process
    StateChange_PageReplaced = 16,        ///< a new active frame follows
    StateChange_VariablesRenamed = 17,    ///< variables
    StateChange_ZonesRenamed = 18,        ///< zones
    StateChange_LineMaps = 19,            ///< line maps created, deleted or changed
    StateChange_VariablesLoaded = 21,     ///< zones, variables (loaded or unloaded)
    StateChange_SharingChanged = 22,      ///< zones, variables
    StateChange_ZoneMetricsLoaded = 23,   ///< zones
    StateChange_StateRestored = 24,       ///< undo, redo or a new layout: anything may differ
    StateChange_PickList = 25,            ///<
    StateChange_MouseMode = 26,           ///<
    StateChange_AuxDataAdded = 41,        ///<
    StateChange_AuxDataDeleted = 42,      ///<
    StateChange_AuxDataAltered = 43,      ///<
    StateChange_AuxDataOwnersReplaced =
        51 ///< what has auxiliary data under a number or as the active one may be another; after the
           ///< event of zones, variables, line maps, frames or pages that did it
} StateChange_e;

#ifdef __cplusplus
}
#endif
