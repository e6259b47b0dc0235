#pragma once

// After the header that says which bench.

/// A bench whose link is up.
struct UpBench : Bench
{
    explicit UpBench(const QString &folder = {})
        : Bench(folder)
    {
        if (!comeUp())
            qFatal("the link did not come up");
    }
};
