#include "support/program.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <system_error>
#include <thread>

namespace kelptest {

namespace {

[[noreturn]] void throw_errno(const std::string& what) {
  throw std::system_error(errno, std::generic_category(), what);
}

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

/// A file without a name for one output of the program: it takes any amount while nobody reads.
File unnamed_file() {
  File file(std::tmpfile(), &std::fclose);
  if (!file) throw_errno("tmpfile");
  return file;
}

std::string contents(const File& file) {
  std::rewind(file.get());
  std::string text;
  char part[4096];
  while (const std::size_t n = std::fread(part, 1, sizeof part, file.get())) text.append(part, n);
  return text;
}

/// The child's side: never returns.
[[noreturn]] void become_program(const std::filesystem::path& folder, std::vector<char*>& argv,
                                 int out, int err) {
  const int null = open("/dev/null", O_RDONLY);
  const bool ready = null >= 0 && dup2(null, STDIN_FILENO) >= 0 && dup2(out, STDOUT_FILENO) >= 0 &&
                     dup2(err, STDERR_FILENO) >= 0 && chdir(folder.c_str()) == 0;
  if (ready) execv(argv.front(), argv.data());
  std::perror(argv.front());
  _exit(127);
}

using Watch = std::function<void(pid_t)>;

/// Waits for the end of the process, or kills it at the deadline. Gives the status as waitpid does.
int wait_or_kill(pid_t pid, double timeout_seconds, const Watch& watch, bool& timed_out) {
  const auto deadline =
      std::chrono::steady_clock::now() + std::chrono::duration<double>(timeout_seconds);
  int status = 0;
  for (timed_out = false;;) {
    const pid_t ended = waitpid(pid, &status, timed_out ? 0 : WNOHANG);
    if (ended == pid) return status;
    if (ended < 0 && errno != EINTR) throw_errno("waitpid");
    if (!timed_out && std::chrono::steady_clock::now() >= deadline) {
      timed_out = true;
      kill(pid, SIGKILL);
    }
    if (!timed_out && watch) watch(pid);
    if (!timed_out) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
}

Outcome run_words(const WorkFolder& folder, std::vector<std::string> words, double timeout_seconds,
                  const Watch& watch = {}) {
  std::vector<char*> argv;
  for (std::string& word : words) argv.push_back(word.data());
  argv.push_back(nullptr);

  setenv("ASAN_OPTIONS", "exitcode=99", 0);
  setenv("UBSAN_OPTIONS", "exitcode=99:print_stacktrace=1", 0);
  const File out = unnamed_file();
  const File err = unnamed_file();
  const pid_t pid = fork();
  if (pid < 0) throw_errno("fork");
  if (pid == 0) become_program(folder.path(), argv, fileno(out.get()), fileno(err.get()));

  Outcome outcome{};
  const int status = wait_or_kill(pid, timeout_seconds, watch, outcome.timed_out);
  outcome.status = WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
  outcome.out = contents(out);
  outcome.err = contents(err);
  return outcome;
}

/// The program that was built beside the tests, or another one that is named outside: one for
/// another processor, say, behind its emulator.
std::string program() {
  const char* const named = std::getenv("KELPRUN_PROGRAM");
  return named != nullptr ? named : KELPRUN_PROGRAM;
}

[[noreturn]] void throw_bad_row(std::size_t line, const std::string& what) {
  throw std::runtime_error("table line " + std::to_string(line) + ": " + what);
}

/// A fixed-width field that must hold one number and nothing else but leading blanks.
double number(const std::string& field, std::size_t line) {
  if (field.find_first_not_of('*') == std::string::npos) return std::stod("nan");
  char* end = nullptr;
  const double value = std::strtod(field.c_str(), &end);
  if (end == field.c_str() || *end != '\0') throw_bad_row(line, "not a number: '" + field + "'");
  return value;
}

}  // namespace

WorkFolder::WorkFolder() {
  std::string name = (std::filesystem::temp_directory_path() / "kelprun-test-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) throw_errno(name);
  path_ = name;
}

WorkFolder::~WorkFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

bool WorkFolder::exists(const std::string& name) const {
  return std::filesystem::exists(path_ / name);
}

std::string WorkFolder::read(const std::string& name) const {
  std::ifstream file(path_ / name, std::ios::binary);
  if (!file) throw_errno(name);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void WorkFolder::write(const std::string& name, const std::string& text) const {
  std::filesystem::create_directories((path_ / name).parent_path());
  std::ofstream file(path_ / name, std::ios::binary);
  file << text << std::flush;
  if (!file) throw_errno(name);
}

Outcome run_program(const WorkFolder& folder, const std::vector<std::string>& args,
                    double timeout_seconds) {
  return run_watched(folder, args, {}, timeout_seconds);
}

Outcome run_watched(const WorkFolder& folder, const std::vector<std::string>& args,
                    const std::function<void(pid_t)>& watch, double timeout_seconds) {
  std::vector<std::string> words{program()};
  words.insert(words.end(), args.begin(), args.end());
  return run_words(folder, words, timeout_seconds, watch);
}

Outcome run_shell(const WorkFolder& folder, const std::string& command, double timeout_seconds) {
  return run_words(folder, {"/bin/sh", "-c", command, program()}, timeout_seconds);
}

std::vector<std::string> lines(const std::string& text) {
  std::vector<std::string> result;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    result.push_back(text.substr(begin, end - begin));
    begin = end + 1;
  }
  return result;
}

Table read_table(const std::string& text, int width) {
  const std::size_t date_width = 8;
  const auto value_width = static_cast<std::size_t>(width);
  const std::vector<std::string> all = lines(text);
  if (all.empty()) throw_bad_row(1, "no title");

  Table table;
  table.title = all.front();
  for (std::size_t k = 1; k < all.size(); ++k) {
    const std::string& row = all[k];
    if (row.size() <= date_width || (row.size() - date_width) % value_width != 0) {
      throw_bad_row(k + 1, std::to_string(row.size()) + " characters");
    }
    const double date = number(row.substr(0, date_width), k + 1);
    if (!(date == static_cast<int>(date))) throw_bad_row(k + 1, "bad date");
    table.dates.push_back(static_cast<int>(date));
    std::vector<double>& values = table.rows.emplace_back();
    for (std::size_t begin = date_width; begin < row.size(); begin += value_width) {
      values.push_back(number(row.substr(begin, value_width), k + 1));
    }
  }
  return table;
}

}  // namespace kelptest
