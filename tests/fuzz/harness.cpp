#include "fuzz/harness.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "input/checks.h"
#include "run/run.h"
#include "text/stop.h"

namespace kelptest {

namespace {

struct Stopped {};

[[noreturn]] void throw_stop(int) { throw Stopped{}; }

/// A folder in memory that is the working folder of the target.
class Folder {
 public:
  Folder() {
    std::string name = "/dev/shm/kelprun-fuzz-XXXXXX";
    if (mkdtemp(name.data()) == nullptr) std::abort();
    path_ = name;
    std::filesystem::current_path(path_);
    kelprun::set_stop_handler(throw_stop);
    for (const auto& [file, text] : small_coast()) write(file, text);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  ~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  void write(const std::string& name, std::string_view text) {
    std::ofstream file(name, std::ios::binary);
    file << text;
  }

 private:
  std::filesystem::path path_;
};

Folder& folder() {
  static Folder the_one;
  return the_one;
}

/// Steps enough for a record of every series, a table row and a year block.
constexpr int MOST_STEPS = 30;

void run() {
  kelprun::Run run;
  try {
    kelprun::setup(run, "run.cfg");
    for (int step = 1; step <= MOST_STEPS && kelprun::step(run); ++step) {
    }
    kelprun::finish(run);
  } catch (const Stopped&) {
  }
}

std::string values(int count, double value) {
  std::ostringstream text;
  text << "1\n2\n3\n4\n";
  for (int i = 1; i <= count; ++i) text << value << (i % 10 == 0 || i == count ? "\n" : " ");
  return text.str();
}

/// Records of three hours of the first days of 1997.
std::string series(const std::string& record) {
  std::ostringstream text;
  for (int k = 0; k < 24; ++k)
    text << 19970101 + k / 8 << " " << k % 8 * 300 << " " << record << "\n";
  return text.str();
}

constexpr const char* CONFIGURATION = R"(KELPRUN:
TITLE: everything
INIFILE: shore
REGFILE: contour
IREG: 1
DXFILE: widths
DX: -1
NX: 20
KELUNITS: (m)
WAVUNITS: (m)
NUMWAVES: 1
WAVEID: 21 20 24 waves
WLFILE: 24 levels
TIDEFILE: 21 24 tides
KTIDE: 1
PRFILE: run.prt
SIMDATS: 19970101
SIMDATE: 19970104
DT: 3
DTSAVE: 6
PRDATE: 19970102
K1: 0.4
K2: 0.2
HAMP: 1
THETAAMP: 1
THETADEL: 0
BERMHT: 1
DCLOS: 8
D50: 0.2
ISMOOTH: 5
DTADAPT: 1
LBCTYPE: 0
RBCTYPE: 3
RMOVY: 1
RMOVPER: 2
IXNDG: 16
YNDG: 120
PNDG: 0.1
IXDG: 8
YDG: 130
DDG: 2
PDG: 0.2
DBI1: 4
DBI2: 7
DBY1: 160
DBY2: 160
DBDEP1: 3
DBDEP2: 3
KTMETDB: 2
HDB: 1
BDB: 4
SSDB: 2
SHSDB: 2
D50DB: 1
ISWBEG: 9
ISWEND: 11
SWY1: 90
SWY2: 90
BFDATS: 19970101
BFDATE: 19970103
IBFS: 9
IBFE: 11
YADD: 5
BPDATS: 19970101
BPDATE: 19970104
IBPS: 2
IBPE: 3
QBP: -20
IINLS: 13
IINLE: 14
INLNAME: Pass
IBYPL1: 11
IBYPL2: 11
IBYPR1: 17
IBYPR2: 18
VVSE: 1000
VVSEQ: 5000
VVSF: 500
VVSFQ: 2000
VVSBL: 10
VVSBQL: 200
VVSBR: 10
VVSBQR: 200
VVSAL: 10
VVSAQL: 100
VVSAR: 10
VVSAQR: 100
JBCL: 1
JBCR: 1
IMOR: 3
IDREDS: 19970102
IDREDE: 19970103
DRDAY: 2
DREDV: 100
ILEDGV1: 10
ILEDGV2: 18
ILEDGQ1: 13
ILEDGQ2: 15
)";

}  // namespace

const Files& small_coast() {
  static const Files files = {{"run.cfg", CONFIGURATION},    {"shore", values(20, 100.0)},
                              {"contour", values(20, 95.0)}, {"widths", values(20, 50.0)},
                              {"waves", series("1.2 8 12")}, {"levels", series("0.3")},
                              {"tides", series("0.1")}};
  return files;
}

void check_configuration(std::string_view configuration) {
  folder().write("run.cfg", configuration);
  kelprun::Run run;
  try {
    kelprun::read_and_check("run.cfg", run.model, run.files, run.report);
  } catch (const Stopped&) {
  }
}

void run_with(const std::string& name, std::string_view text) {
  folder().write(name, text);
  run();
}

void run_files(const Files& files) {
  for (const auto& [name, text] : files) folder().write(name, text);
  run();
}

}  // namespace kelptest
