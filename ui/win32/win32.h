#pragma once

#include <windows.h>

// A macro that would rename ui::MessageBox wherever this header comes first.
#undef MessageBox
