#pragma once

/// @file
/// All functions of the kernel.

#include "platform/vdsdkbase/VelUtilArgList.h"
#include "platform/vdsdkbase/VelUtilAxis.h"
#include "platform/vdsdkbase/VelUtilDataOperation.h"
#include "platform/vdsdkbase/VelUtilDataSet.h"
#include "platform/vdsdkbase/VelUtilDataValue.h"
#include "platform/vdsdkbase/VelUtilDialog.h"
#include "platform/vdsdkbase/VelUtilFieldMap.h"
#include "platform/vdsdkbase/VelUtilFourier.h"
#include "platform/vdsdkbase/VelUtilFrame.h"
#include "platform/vdsdkbase/VelUtilImport.h"
#include "platform/vdsdkbase/VelUtilLineMap.h"
#include "platform/vdsdkbase/VelUtilMouse.h"
#include "platform/vdsdkbase/VelUtilPage.h"
#include "platform/vdsdkbase/VelUtilPick.h"
#include "platform/vdsdkbase/VelUtilQuery.h"
#include "platform/vdsdkbase/VelUtilString.h"
#include "platform/vdsdkbase/VelUtilStyle.h"
#include "platform/vdsdkbase/VelUtilTypes.h"
#include "platform/vdsdkbase/VelUtilVar.h"
#include "platform/vdsdkbase/VelUtilZone.h"
