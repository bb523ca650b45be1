#pragma once

/// Marks what the dialog library exports; everything else stays local to it.
#define VDSDKDIALOGS_DATA_QT_API __attribute__((visibility("default")))
