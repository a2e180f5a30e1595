#include "platform/watched_process.h"

#include <windows.h>

#include <array>
#include <future>
#include <utility>

#include "platform/line_splitter.h"
#include "platform/start_tries.h"
#include "platform/user.h"
#include "platform/windows/last_error.h"
#include "platform/windows/owned_handle.h"
#include "platform/windows/system_path.h"
#include "platform/windows/utf8.h"

namespace platform {
namespace {

// How long to wait for the next piece of output before looking again, and room for what comes
// meanwhile: a picture or two.
constexpr DWORD kLookMilliseconds = 10;
constexpr DWORD kPipeBytes = 4U << 20U;

// `word` as the usual rules for command lines read it back: quoted, with quotes and the backslashes
// before them doubled by a backslash.
std::string Quoted(const std::string& word) {
  std::string quoted = "\"";
  std::size_t backslashes = 0;
  for (const char c : word) {
    if (c == '\\') {
      ++backslashes;
    } else {
      if (c == '"') {
        quoted.append(backslashes + 1, '\\');
      }
      backslashes = 0;
    }
    quoted += c;
  }
  return quoted.append(backslashes, '\\') + "\"";
}

struct Pipe {
  OwnedHandle reading;
  OwnedHandle writing;
};

Pipe MakePipe() {
  HANDLE reading = nullptr;
  HANDLE writing = nullptr;
  if (CreatePipe(&reading, &writing, nullptr, kPipeBytes) == 0) {
    return {};
  }
  return {OwnedHandle(reading), OwnedHandle(writing)};
}

// Has programs started from now on inherit it.
void Bequeath(const OwnedHandle& handle) {
  SetHandleInformation(handle.get(), HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
}

OwnedHandle OpenNullDevice() {
  HANDLE device = CreateFileW(L"NUL", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                              OPEN_EXISTING, 0, nullptr);
  return OwnedHandle(device == INVALID_HANDLE_VALUE ? nullptr : device);
}

// Whatever is in it is killed when its last handle goes, which the system closes in any case.
OwnedHandle MakeDeadlyJob() {
  OwnedHandle job(CreateJobObjectW(nullptr, nullptr));
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits = {};
  limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
  SetInformationJobObject(job.get(), JobObjectExtendedLimitInformation, &limits, sizeof(limits));
  return job;
}

// A started program, killed when it is left before its end.
class Child {
 public:
  Child(OwnedHandle process, OwnedHandle job)
      : process_(std::move(process)), job_(std::move(job)) {}
  ~Child() {
    TerminateJobObject(job_.get(), 1);
    // Also where the system refused to put it into the job; nothing happens to one that has ended.
    TerminateProcess(process_.get(), 1);
    WaitForSingleObject(process_.get(), INFINITE);
  }
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;

  // Whether it ends within that time.
  bool Ends(DWORD milliseconds) const {
    return WaitForSingleObject(process_.get(), milliseconds) == WAIT_OBJECT_0;
  }

  DWORD Status() const {
    DWORD status = 1;
    GetExitCodeProcess(process_.get(), &status);
    return status;
  }

 private:
  OwnedHandle process_;
  OwnedHandle job_;
};

// Passes on what is in the pipe. Returns whether there was anything.
bool PassOn(const Pipe& pipe, const std::function<void(std::string_view)>& take) {
  std::array<char, 65536> buffer;
  DWORD available = 0;
  DWORD count = 0;
  if (PeekNamedPipe(pipe.reading.get(), nullptr, 0, nullptr, &available, nullptr) == 0 ||
      available == 0 ||
      ReadFile(pipe.reading.get(), buffer.data(), static_cast<DWORD>(buffer.size()), &count,
               nullptr) == 0) {
    return false;
  }
  take({buffer.data(), count});
  return count != 0;
}

// Passes on what comes to the program's end. Returns false when it was left for an interruption.
bool PassOnAll(const Pipe& outputs, const std::function<void(std::string_view)>& output,
               const Pipe& errors, LineSplitter& errorLines, const Child& child) {
  bool hasEnded = false;
  bool hasPassed = true;
  // What it wrote last is still in the pipes after its end.
  while (!hasEnded || hasPassed) {
    if (IsInterrupted()) {
      return false;
    }
    hasEnded = hasEnded || child.Ends(hasPassed ? 0 : kLookMilliseconds);
    const bool fromOutput = PassOn(outputs, output);
    hasPassed =
        PassOn(errors, [&](std::string_view piece) { errorLines.Take(piece); }) || fromOutput;
  }
  errorLines.Finish();
  return true;
}

// Errors of a system that is short of something; the first is what Wine says on a busy machine.
bool IsMomentary(int error) {
  return error == ERROR_INTERNAL_ERROR || error == ERROR_NO_SYSTEM_RESOURCES ||
         error == ERROR_NOT_ENOUGH_MEMORY || error == ERROR_COMMITMENT_LIMIT;
}

}  // namespace

Result<ProcessEnd> RunWatched(const std::filesystem::path& program,
                              const std::vector<std::string>& arguments,
                              const std::filesystem::path& folder,
                              const std::function<void(std::string_view)>& output,
                              const std::function<void(const std::string&)>& errorLine,
                              const std::function<void()>& holdInput) {
  std::string words = Quoted(Utf8FromWide(program.native()));
  for (const std::string& argument : arguments) {
    words += " " + Quoted(argument);
  }
  const std::wstring line = WideFromUtf8(words);
  Pipe input = holdInput ? MakePipe() : Pipe{OpenNullDevice(), {}};
  Pipe outputs = MakePipe();
  Pipe errors = MakePipe();
  if (!input.reading || !outputs.reading || !errors.reading) {
    return LastError();
  }
  Bequeath(input.reading);
  Bequeath(outputs.writing);
  Bequeath(errors.writing);
  STARTUPINFOW startUp = {};
  startUp.cb = sizeof(startUp);
  startUp.dwFlags = STARTF_USESTDHANDLES;
  startUp.hStdInput = input.reading.get();
  startUp.hStdOutput = outputs.writing.get();
  startUp.hStdError = errors.writing.get();
  PROCESS_INFORMATION created = {};
  const auto start = [&] {
    // The call may write into the line, so each gets a copy. Detached: with a console of its own,
    // even without a window, comes a further process.
    std::wstring written = line;
    const bool isStarted = CreateProcessW(SystemPath(program).c_str(), written.data(), nullptr,
                                          nullptr, TRUE, DETACHED_PROCESS | CREATE_SUSPENDED,
                                          nullptr, folder.c_str(), &startUp, &created) != 0;
    return isStarted ? 0 : static_cast<int>(GetLastError());
  };
  if (const int error = TryToStart(start, IsMomentary); error != 0) {
    return ErrorOf(static_cast<DWORD>(error));
  }
  OwnedHandle job = MakeDeadlyJob();
  AssignProcessToJobObject(job.get(), created.hProcess);
  // Its end waits.
  std::future<void> held;
  const Child child(OwnedHandle(created.hProcess), std::move(job));
  ResumeThread(OwnedHandle(created.hThread).get());
  if (holdInput) {
    held = std::async(std::launch::async, [&] {
      holdInput();
      input.writing.reset();
    });
  }
  outputs.writing.reset();
  errors.writing.reset();
  LineSplitter errorLines(errorLine);
  if (!PassOnAll(outputs, output, errors, errorLines, child)) {
    return ProcessEnd{true, ""};
  }
  const DWORD status = child.Status();
  return ProcessEnd{false, status == 0 ? "" : "status " + std::to_string(status)};
}

}  // namespace platform
