// What the benchmark programs begin with.
#pragma once

#include <QtGlobal>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <initializer_list>

/// Runs all benchmarks of the program: its exit status. It is 2, with a word on standard error, when one of the
/// variables of the environment that they read is missing, or an argument is unknown.
inline int MesurerTout(int argc, char** argv, std::initializer_list<const char*> variables = {})
{
    for (const char* variable : variables) {
        if (qEnvironmentVariableIsEmpty(variable)) {
            std::fprintf(stderr, "%s: set %s\n", argv[0], variable);
            return 2;
        }
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
