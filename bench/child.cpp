#include "child.h"

#include "support/kept_memory.h"

#include <algorithm>
#include <ctime>
#include <fcntl.h>
#include <fstream>
#include <limits>
#include <malloc.h>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace cardwright {

namespace {

constexpr int kRounds = 4;

double processorSeconds() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

/// What /proc tells of this process's memory.
std::size_t bytesOf(const char* line) {
  std::ifstream status("/proc/self/status");
  std::string word;
  std::size_t kilobytes = 0;
  while (status >> word && word != line) {
  }
  status >> kilobytes;
  return kilobytes * 1024;
}

/// Makes the most memory that was had the memory that is had now.
void forgetPeak() {
  malloc_trim(0);
  std::ofstream("/proc/self/clear_refs") << "5";
}

double secondsOf(Work& work) {
  const double begin = processorSeconds();
  work.run();
  return processorSeconds() - begin;
}

double secondsOf(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

Cost costOf(Work& work) {
  const std::size_t before = bytesOf("VmRSS:");
  Cost cost;
  cost.inputBytes = work.prepare();
  forgetPeak();
  cost.seconds = secondsOf(work);
  cost.peakBytes = bytesOf("VmHWM:");
  cost.peakBytes -= std::min(cost.peakBytes, before);
  keepMemory();
  for (int round = 1; round < kRounds; ++round) {
    cost.seconds = std::min(cost.seconds, secondsOf(work));
  }
  return cost;
}

} // namespace

Work::~Work() = default;

std::optional<Cost> costInChild(Work& work) {
  int ends[2];
  if (pipe(ends) != 0) {
    return std::nullopt;
  }
  const pid_t child = fork();
  if (child == 0) {
    const Cost cost = costOf(work);
    // Objects are left to the system: letting go of them takes longer than some of the work.
    _exit(write(ends[1], &cost, sizeof cost) == sizeof cost ? 0 : 1);
  }
  close(ends[1]);
  Cost cost;
  const bool isTold = child > 0 && read(ends[0], &cost, sizeof cost) == sizeof cost;
  close(ends[0]);
  int status = 0;
  const bool hasEnded = child > 0 && waitpid(child, &status, 0) == child;
  return isTold && hasEnded && status == 0 ? std::optional(cost) : std::nullopt;
}

std::optional<Cost> costOfCommand(const std::vector<std::string>& words) {
  std::vector<char*> arguments;
  for (const std::string& word : words) {
    arguments.push_back(const_cast<char*>(word.c_str()));
  }
  arguments.push_back(nullptr);
  Cost cost;
  cost.seconds = std::numeric_limits<double>::infinity();
  for (int round = 0; round < kRounds; ++round) {
    const pid_t child = fork();
    if (child == 0) {
      const int nowhere = open("/dev/null", O_WRONLY);
      dup2(nowhere, STDOUT_FILENO);
      dup2(nowhere, STDERR_FILENO);
      execv(arguments[0], arguments.data());
      _exit(127);
    }
    int status = 0;
    rusage usage{};
    if (child < 0 || wait4(child, &status, 0, &usage) != child || status != 0) {
      return std::nullopt;
    }
    cost.seconds = std::min(cost.seconds, secondsOf(usage.ru_utime) + secondsOf(usage.ru_stime));
    cost.peakBytes = static_cast<std::size_t>(usage.ru_maxrss) * 1024;
  }
  return cost;
}

} // namespace cardwright
