// How much memory this process has, in megabytes of a million bytes; 0 where the system does not tell.
#pragma once

namespace tembrel::bench {

double ResidentMemory();
// The most there was at a time since ForgetPeakMemory.
double PeakMemory();
void ForgetPeakMemory();

}  // namespace tembrel::bench
