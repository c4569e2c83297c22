// What the benchmark programs begin with.
#pragma once

#include <QFile>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <initializer_list>

/// Memory that the process holds, in bytes, as the system counts it.
inline qint64 MemoireDuProcessus()
{
    QFile statut(QStringLiteral("/proc/self/statm"));
    if (!statut.open(QIODevice::ReadOnly))
        return 0;
    return statut.readAll().split(' ').value(1).toLongLong() * 4096;
}

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
