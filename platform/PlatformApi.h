#pragma once

/// Visibility of what crosses library borders: exceptions, interfaces and exported functions. Without it `catch` and
/// `dynamic_cast` would not recognise one another's types.
#define VELDRAW_PLATFORM_API __attribute__((visibility("default")))
