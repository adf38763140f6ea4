#pragma once

#include <dlfcn.h>

namespace trevandix {

/// A function of the libraries below wx on Linux, which are in the program anyway, for what wx has no call.
/// nullptr where there is none of this name.
template <typename Function>
Function* gtkFunction(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_DEFAULT, name));
}

}  // namespace trevandix
