#pragma once

#include <string>

namespace cardwright::tool {

/// Makes SIGINT, SIGTERM and SIGHUP end the process as they always do, but without leaving
/// unfinished files; a signal that is ignored stays ignored.
void catchInterruptions();

/// Keeps these signals waiting as long as it lives.
class UninterruptedMoment {
 public:
  UninterruptedMoment();
  UninterruptedMoment(const UninterruptedMoment&) = delete;
  UninterruptedMoment& operator=(const UninterruptedMoment&) = delete;
  ~UninterruptedMoment();
};

/// Names a file that must not outlive an interrupted process.
/// @returns what forgetUnfinished() takes; what there is no room for is not remembered
[[nodiscard]] int rememberUnfinished(const std::string& path);
void forgetUnfinished(int remembered);

} // namespace cardwright::tool
