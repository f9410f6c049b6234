// SPDX-License-Identifier: MIT
// What the benchmarks that run the whole program share: the Qt application around them, and errors told as such.
#pragma once

#include "qt/qt_desktop.h"

#include <cstdio>
#include <exception>

namespace tessit::bench {

// Gives the exit code of `run`, or 1 when it throws.
inline int run_bench(int argc, char* argv[], int (*run)(const QStringList& arguments)) {
    const qt::GuiApplication application(argc, argv);
    try {
        return run(QCoreApplication::arguments());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", argv[0], error.what());
        return 1;
    }
}

} // namespace tessit::bench
