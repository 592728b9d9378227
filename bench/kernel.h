// The in-memory kernels, run over the samples of a file.
#pragma once

namespace pixora::bench {

/// Answers `pixora_bench kernel ...`; `arguments` are those after "kernel". @return the exit status.
int RunKernel(int count, const char* const* arguments);

}  // namespace pixora::bench
