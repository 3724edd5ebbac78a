#pragma once

// The driver manager's own headers, in the order in which every system takes them.
#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#endif
// clang-format off
#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>
// clang-format on

static_assert(sizeof(SQLWCHAR) == 2, "wide text is UTF-16 with every driver manager that we use");
