#include <array>
#include <sstream>

#include <fuzzer/FuzzedDataProvider.h>

#include "fuzz/harness.h"

/// Whole short runs: a coast of some cells with structures, events and waves drawn from the bytes.
namespace {

using kelptest::Files;

class Coast {
 public:
  explicit Coast(FuzzedDataProvider& bytes) : bytes_(bytes), NX_(whole(1, 40)) {}

  Files files() {
    const int records = whole(1, 16);
    general(records);
    groins();
    breakwaters();
    several("ISWBEG", {"ISWEND"}, {"SWY1", "SWY2"});
    several("BFDATS", {"BFDATE", "IBFS", "IBFE"}, {"YADD"});
    several("BPDATS", {"BPDATE", "IBPS", "IBPE"}, {"QBP"});
    several("IINLS", {"IINLE", "IBYPL1", "IBYPL2", "IBYPR1", "IBYPR2"},
            {"VVSE", "VVSF", "VVSBL", "VVSBR", "VVSAL", "VVSAR", "VVSEQ", "VVSFQ", "VVSBQL",
             "VVSBQR", "VVSAQL", "VVSAQR", "YINLL", "YINLR", "JBCL", "JBCR"});
    several("ILEDGV1", {"ILEDGV2"}, {});
    several("ILEDGQ1", {"ILEDGQ2"}, {});
    return {{"run.cfg", text_.str()}, {"shore", shoreline()}, {"waves", waves(records)}};
  }

 private:
  int whole(int low, int high) { return bytes_.ConsumeIntegralInRange(low, high); }
  /// A hundredth of a whole number: sizes as they occur, and now and then a wild one.
  double real(double low, double high) {
    if (whole(0, 31) == 0) return bytes_.ConsumeFloatingPointInRange(-1e30, 1e30);
    return low + (high - low) * bytes_.ConsumeProbability<double>();
  }
  template <class Value>
  void line(const char* keyword, Value value) {
    text_ << keyword << ": " << value << "\n";
  }

  void general(int records) {
    text_ << "KELPRUN:\nINIFILE: shore\nPRFILE: run.prt\nNUMWAVES: 1\nSIMDATS: 19970101\n";
    text_ << "WAVEID: " << NX_ + 1 << " " << real(2, 30) << " " << records << " waves\n";
    line("KELUNITS", bytes_.ConsumeBool() ? "(m)" : "(ft)");
    line("NX", NX_);
    line("DX", real(10, 200));
    line("SIMDATE", whole(1, 24));
    const int DT = whole(1, 4);
    line("DT", DT);
    line("DTSAVE", DT * whole(1, 3));
    for (const char* factor : {"HAMP", "THETAAMP"}) line(factor, real(0, 2));
    line("THETADEL", real(-90, 90));
    line("K1", real(0, 1));
    line("K2", real(0, 1));
    line("BERMHT", real(0, 3));
    line("DCLOS", real(1, 10));
    line("D50", real(0.1, 50));
    line("ISMOOTH", whole(0, 50));
    line("DTADAPT", whole(0, 1));
    for (const char* type : {"LBCTYPE", "RBCTYPE"}) line(type, whole(0, 3));
    for (const char* keyword : {"LMOVY", "RMOVY", "LGROINY", "RGROINY"}) line(keyword, real(-9, 9));
    for (const char* period : {"LMOVPER", "RMOVPER"}) line(period, whole(1, 3));
    if (bytes_.ConsumeBool()) line("PRDATE", whole(1, 24));
  }

  void groins() {
    several("IXNDG", {}, {"YNDG", "PNDG"});
    several("IXDG", {}, {"YDG", "DDG", "PDG"});
  }

  void breakwaters() { several("DBI1", {"DBI2"}, {"DBY1", "DBY2", "DBDEP1", "DBDEP2", "TRANDB"}); }

  /// Up to four entries of a list: cells near the grid, and sizes.
  void several(const char* opener, std::initializer_list<const char*> cells,
               std::initializer_list<const char*> sizes) {
    for (int k = whole(0, 4); k > 0; --k) {
      line(opener, whole(-1, NX_ + 2));
      for (const char* keyword : cells) line(keyword, whole(-1, NX_ + 2));
      for (const char* keyword : sizes) line(keyword, real(0, 300));
    }
  }

  std::string shoreline() {
    std::ostringstream text;
    text << "1\n2\n3\n4\n";
    for (int i = 1; i <= NX_; ++i) text << real(0, 300) << (i % 10 == 0 ? "\n" : " ");
    text << "\n";
    return text.str();
  }

  std::string waves(int records) {
    std::ostringstream text;
    for (int k = 0; k < records; ++k)
      text << 19970101 + k * 4 / 24 << " " << k * 4 % 24 * 100 << " " << real(0, 4) << " "
           << real(0, 16) << " " << real(-100, 100) << "\n";
    return text.str();
  }

  FuzzedDataProvider& bytes_;
  int NX_;
  std::ostringstream text_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider bytes(data, size);
  kelptest::run_files(Coast(bytes).files());
  return 0;
}
