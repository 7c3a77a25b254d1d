#include "input/keywords.h"

#include <algorithm>
#include <array>

#include "input/keyword_actions.h"
#include "model/capacities.h"

namespace kelprun {

namespace {

using R = Reading;
using I = std::int32_t;
using F = float;
using D = double;
using B = bool;
using S = std::string;
using Is = Array1<std::int32_t>;
using Fs = Array1<float>;
using Then = void (*)(Reading&);

constexpr Keyword text(std::string_view name, int width, StoreText store, Then then = nullptr) {
  return {name, Form::text, store, then, {}, width};
}
constexpr Keyword file(std::string_view name, StoreText store, Then then = nullptr) {
  return {name, Form::name, store, then};
}
constexpr Keyword int8(std::string_view name, StoreInt store, Then then = nullptr) {
  return {name, Form::int8, store, then};
}
constexpr Keyword logical7(std::string_view name, StoreBool store) {
  return {name, Form::logical7, store};
}
constexpr Keyword integer(std::string_view name, StoreInt store) {
  return {name, Form::integer, store};
}
constexpr Keyword real(std::string_view name, StoreReal store, Then then = nullptr) {
  return {name, Form::real, store, then};
}
constexpr Keyword real64(std::string_view name, StoreReal64 store) {
  return {name, Form::real64, store};
}
constexpr Keyword int_list(std::string_view name, StoreInts store) {
  return {name, Form::int_list, store};
}
constexpr Keyword real_list(std::string_view name, StoreReals store) {
  return {name, Form::real_list, store};
}
constexpr Keyword items(std::string_view name, StoreItems store) {
  return {name, Form::items, store};
}

/// A keyword whose lines open the records of a list.
constexpr Keyword opens(Keyword keyword) {
  keyword.opener = keyword.name;
  return keyword;
}
/// A list keyword: its n-th line belongs to the n-th line of the opener.
constexpr Keyword entry(std::string_view opener, Keyword keyword) {
  keyword.opener = opener;
  return keyword;
}
/// A keyword of the record that the opener opened last.
constexpr Keyword field(std::string_view opener, Keyword keyword) {
  keyword.opener = opener;
  keyword.to_last_record = true;
  return keyword;
}

using namespace capacity;

// An entry stores at the next place of its own list; a keyword that opens records also counts; a
// field is stored "at the count".
// clang-format off
const std::array KEYWORDS = {
    // Run and files
    Keyword{"KELPRUN"},
    text("TITLE", capacity::TITLE, [](R& r) -> S& { return r.model.settings.TITLE; }, echo_title),
    file("INIFILE", [](R& r) -> S& { return r.model.settings.SHOIN; }, open_initial_shoreline),
    file("REGFILE", [](R& r) -> S& { return r.model.settings.REGFILE; }, open_regional_contour),
    Keyword{"NUMWAVES", Form::int8, +[](R& r) -> I& { return r.model.series.NWFIL; }, nullptr,
            "Cannot not open wave file"},
    opens(items("WAVEID", read_wave_file_line)),
    items("WLFILE", read_water_level_line),
    opens(items("TIDEFILE", read_tidal_line)),
    Keyword{"KTIDE", Form::real, +[](R& r) -> F& { return r.model.series.KTIDE; }, nullptr,
            "Cannot not open wave file"},
    file("PRFILE", [](R& r) -> S& { return r.model.settings.PRTFILE; }, open_report),
    file("DXFILE", [](R& r) -> S& { return r.model.settings.DXIN; }, echo_cell_widths),
    file("BYPFILE", [](R& r) -> S& { return r.model.settings.BYPFILE; }, open_bypass_events),
    text("KELUNITS", UNIT_TEXT, [](R& r) -> S& { return r.model.settings.KELUNITS; }),
    text("WAVUNITS", UNIT_TEXT, [](R& r) -> S& { return r.model.settings.WAVUNITS; }),

    // Grid and time
    real("X0", [](R& r) -> F& { return r.model.grid.X0; }),
    real("Y0", [](R& r) -> F& { return std::get<F>(r.dropped); }),
    real("AZIMUTH", [](R& r) -> F& { return r.model.grid.AZIMUTH; },
         [](R& r) { r.model.grid.AZIM90 = r.model.grid.AZIMUTH - 90.0f; }),
    integer("NX", [](R& r) -> I& { return r.model.grid.NX; }),
    real_list("DX", [](R& r) -> Fs& { return r.DX; }),
    int8("SIMDATS", [](R& r) -> I& { return r.model.clock.SIMDATS; }),
    int8("SIMDATE", [](R& r) -> I& { return r.model.clock.SIMDATE; }),
    real("DT", [](R& r) -> F& { return r.model.clock.DT; }),
    real("DTSAVE", [](R& r) -> F& { return r.model.clock.DTSAVE; }),
    integer("DTADAPT", [](R& r) -> I& { return r.model.settings.DTADAPT; }),
    real64("DTMIN", [](R& r) -> D& { return r.model.settings.DTMIN; }),
    real("DTMAX", [](R& r) -> F& { return r.model.settings.DTMAX; }),
    real("NSTABDTMIN", [](R& r) -> F& { return r.model.settings.NSTABDTMIN; }),
    real("STABMIN", [](R& r) -> F& { return r.model.settings.STABMIN; }),
    real("STABMAX", [](R& r) -> F& { return r.model.settings.STABMAX; }),
    logical7("PRTOUT", [](R& r) -> B& { return r.model.settings.PRTOUT; }),
    logical7("PRWARN", [](R& r) -> B& { return r.model.settings.PRWARN; }),
    opens(int8("PRDATE", [](R& r) -> I& { return counted(r, r.model.settings.NOUT, r.model.settings.PRDATE, PRINT_DATES); })),

    // Physics and values along the coast
    real_list("K1", [](R& r) -> Fs& { return r.K1.values; }),
    int_list("IK1END", [](R& r) -> Is& { return r.K1.ends; }),
    real_list("K2", [](R& r) -> Fs& { return r.K2.values; }),
    int_list("IK2END", [](R& r) -> Is& { return r.K2.ends; }),
    real_list("HAMP", [](R& r) -> Fs& { return r.HAMP.values; }),
    int_list("IHAMPEND", [](R& r) -> Is& { return r.HAMP.ends; }),
    real_list("THETAAMP", [](R& r) -> Fs& { return r.THETAAMP.values; }),
    int_list("ITHETAAMPEND", [](R& r) -> Is& { return r.THETAAMP.ends; }),
    real_list("THETADEL", [](R& r) -> Fs& { return r.THETADEL.values; }),
    int_list("ITHETADELEND", [](R& r) -> Is& { return r.THETADEL.ends; }),
    real_list("BERMHT", [](R& r) -> Fs& { return r.BERMHT.values; }),
    int_list("IBERMHTEND", [](R& r) -> Is& { return r.BERMHT.ends; }),
    real_list("DCLOS", [](R& r) -> Fs& { return r.DCLOS.values; }),
    int_list("IDCLOSEND", [](R& r) -> Is& { return r.DCLOS.ends; }),
    real("GAMMA", [](R& r) -> F& { return r.model.settings.GAMMA; }),
    real("D50", [](R& r) -> F& { return r.model.settings.D50; }),
    int8("ISMOOTH", [](R& r) -> I& { return r.model.settings.ISMOOTH; }),
    int8("IREG", [](R& r) -> I& { return r.model.settings.IREG; }),
    integer("WAVREGANG", [](R& r) -> I& { return r.model.settings.WAVREGANG; }),
    integer("IWAVREGSMOOTH", [](R& r) -> I& { return r.model.settings.IWAVREGSMOOTH; }),

    // Boundaries
    int8("LBCTYPE", [](R& r) -> I& { return r.model.boundaries.left.BCTYPE; }),
    int8("RBCTYPE", [](R& r) -> I& { return r.model.boundaries.right.BCTYPE; }),
    real("LMOVY", [](R& r) -> F& { return r.model.boundaries.left.MOVY; }),
    real("RMOVY", [](R& r) -> F& { return r.model.boundaries.right.MOVY; }),
    int8("LMOVPER", [](R& r) -> I& { return r.model.boundaries.left.MOVPER; }),
    int8("RMOVPER", [](R& r) -> I& { return r.model.boundaries.right.MOVPER; }),
    real("LGROINY", [](R& r) -> F& { return r.model.boundaries.left.GROINY; }),
    real("RGROINY", [](R& r) -> F& { return r.model.boundaries.right.GROINY; }),

    // Groins
    opens(int8("IXNDG", [](R& r) -> I& { return counted(r, r.model.groins.NNDG, r.model.groins.IXNDG, NON_DIFFRACTING_GROINS); })),
    entry("IXNDG", real("YNDG", [](R& r) -> F& { return next(r, r.model.groins.YNDG, NON_DIFFRACTING_GROINS); })),
    entry("IXNDG", real("PNDG", [](R& r) -> F& { return next(r, r.model.groins.PNDG, NON_DIFFRACTING_GROINS); })),
    opens(int8("IXDG", [](R& r) -> I& { return counted(r, r.model.groins.NDG, r.model.groins.IXDG, DIFFRACTING_GROINS); })),
    entry("IXDG", real("YDG", [](R& r) -> F& { return next(r, r.model.groins.YDG, DIFFRACTING_GROINS); })),
    entry("IXDG", real("DDG", [](R& r) -> F& { return next(r, r.model.groins.DDG, DIFFRACTING_GROINS); },
         [](R& r) { r.last_DDG = r.model.groins.DDG(r.model.groins.DDG.size()); })),
    entry("IXDG", real("PDG", [](R& r) -> F& { return next(r, r.model.groins.PDG, DIFFRACTING_GROINS); })),

    // Detached breakwaters
    opens(int8("DBI1", [](R& r) -> I& { return counted(r, r.model.breakwaters.NDB, r.model.breakwaters.DBI1, BREAKWATERS); })),
    entry("DBI1", int8("DBI2", [](R& r) -> I& { return next(r, r.model.breakwaters.DBI2, BREAKWATERS); })),
    entry("DBI1", real("DBY1", [](R& r) -> F& { return next(r, r.model.breakwaters.DBY1, BREAKWATERS); })),
    entry("DBI1", real("DBY2", [](R& r) -> F& { return next(r, r.model.breakwaters.DBY2, BREAKWATERS); })),
    entry("DBI1", real("DBDEP1", [](R& r) -> F& { return next(r, r.model.breakwaters.DBDEP1, BREAKWATERS); })),
    entry("DBI1", real("DBDEP2", [](R& r) -> F& { return next(r, r.model.breakwaters.DBDEP2, BREAKWATERS); })),
    entry("DBI1", real("TRANDB", [](R& r) -> F& { return next(r, r.model.breakwaters.TRANDB, BREAKWATERS); },
         [](R& r) { r.model.settings.KTMETFLAG = 0; })),
    entry("DBI1", int8("KTMETDB", [](R& r) -> I& { return next(r, r.model.breakwaters.KTMETDB, BREAKWATERS); }, note_transmission_method)),
    entry("DBI1", real("HDB", [](R& r) -> F& { return next(r, r.model.breakwaters.HDB, BREAKWATERS); })),
    entry("DBI1", real("BDB", [](R& r) -> F& { return next(r, r.model.breakwaters.BDB, BREAKWATERS); })),
    entry("DBI1", real("SSDB", [](R& r) -> F& { return next(r, r.model.breakwaters.SSDB, BREAKWATERS); })),
    entry("DBI1", real("SHSDB", [](R& r) -> F& { return next(r, r.model.breakwaters.SHSDB, BREAKWATERS); })),
    field("KTMETDB", real("D50DB", [](R& r) -> F& { return at_count(r, "D50DB", "KTMETDB", r.model.breakwaters.KTMETDB.size(), r.model.breakwaters.D50DB, BREAKWATERS); })),
    field("KTMETDB", real("PDB", [](R& r) -> F& { return at_count(r, "PDB", "KTMETDB", r.model.breakwaters.KTMETDB.size(), r.model.breakwaters.PDB, BREAKWATERS); })),
    int8("IDB1", [](R& r) -> I& { return std::get<I>(r.dropped); }),
    int8("IDBN", [](R& r) -> I& { return std::get<I>(r.dropped); }),

    // Seawalls
    opens(int8("ISWBEG", [](R& r) -> I& { return counted(r, r.model.seawalls.NSW, r.model.seawalls.ISWBEG, SEAWALLS); })),
    field("ISWBEG", int8("ISWEND", [](R& r) -> I& { return at_count(r, "ISWEND", "ISWBEG", r.model.seawalls.NSW, r.model.seawalls.ISWEND, SEAWALLS); })),
    entry("ISWBEG", real("SWY1", [](R& r) -> F& { return next(r, r.model.seawalls.SWY1, SEAWALLS); })),
    entry("ISWBEG", real("SWY2", [](R& r) -> F& { return next(r, r.model.seawalls.SWY2, SEAWALLS); })),

    // Events
    opens(int8("BFDATS", [](R& r) -> I& { return counted(r, r.model.events.NBF, r.model.events.BFDATS, FILLS); })),
    entry("BFDATS", int8("BFDATE", [](R& r) -> I& { return next(r, r.model.events.BFDATE, FILLS); })),
    entry("BFDATS", int8("IBFS", [](R& r) -> I& { return next(r, r.model.events.IBFS, FILLS); })),
    entry("BFDATS", int8("IBFE", [](R& r) -> I& { return next(r, r.model.events.IBFE, FILLS); })),
    entry("BFDATS", real("YADD", [](R& r) -> F& { return next(r, r.model.events.YADD, FILLS); })),
    opens(int8("BPDATS", [](R& r) -> I& { return counted(r, r.model.events.NBP, r.model.events.BPDATS, BYPASS_OPERATIONS); })),
    entry("BPDATS", int8("BPDATE", [](R& r) -> I& { return next(r, r.model.events.BPDATE, BYPASS_OPERATIONS); })),
    entry("BPDATS", int8("IBPS", [](R& r) -> I& { return next(r, r.model.events.IBPS, BYPASS_OPERATIONS); })),
    entry("BPDATS", int8("IBPE", [](R& r) -> I& { return next(r, r.model.events.IBPE, BYPASS_OPERATIONS); })),
    entry("BPDATS", real64("QBP", [](R& r) -> D& { return next(r, r.model.events.QBP, BYPASS_OPERATIONS); })),
    int8("QQDATS", [](R& r) -> I& { return first_entry(r.model.events.BPDATS, r.QQ(1)); }),
    int8("QQDATE", [](R& r) -> I& { return first_entry(r.model.events.BPDATE, r.QQ(2)); }),
    int8("IQQS", [](R& r) -> I& { return first_entry(r.model.events.IBPS, r.QQ(3)); }),
    int8("IQQE", [](R& r) -> I& { return first_entry(r.model.events.IBPE, r.QQ(4)); }),
    real("DTWL", [](R& r) -> F& { return r.model.series.DTWL; }),

    // Inlets
    opens(int8("IINLS", [](R& r) -> I& { return counted(r, r.model.inlets.NINL, r.model.inlets.IINLS, INLETS); })),
    entry("IINLS", int8("IINLE", [](R& r) -> I& { return next(r, r.model.inlets.IINLE, INLETS); })),
    field("IINLS", file("INLNAME", [](R& r) -> S& { return of_inlet(r, "INLNAME", r.model.inlets.INLNAME); })),
    entry("IINLS", int8("IBYPL1", [](R& r) -> I& { return next(r, r.model.inlets.IBYPL1, INLETS); })),
    entry("IINLS", int8("IBYPL2", [](R& r) -> I& { return next(r, r.model.inlets.IBYPL2, INLETS); })),
    entry("IINLS", int8("IBYPR1", [](R& r) -> I& { return next(r, r.model.inlets.IBYPR1, INLETS); })),
    entry("IINLS", int8("IBYPR2", [](R& r) -> I& { return next(r, r.model.inlets.IBYPR2, INLETS); })),
    entry("IINLS", real("VVSE", [](R& r) -> F& { return next(r, r.model.inlets.VVSE, INLETS); })),
    entry("IINLS", real("VVSF", [](R& r) -> F& { return next(r, r.model.inlets.VVSF, INLETS); })),
    entry("IINLS", real("VVSBL", [](R& r) -> F& { return next(r, r.model.inlets.VVSBL, INLETS); })),
    entry("IINLS", real("VVSBR", [](R& r) -> F& { return next(r, r.model.inlets.VVSBR, INLETS); })),
    entry("IINLS", real("VVSAL", [](R& r) -> F& { return next(r, r.model.inlets.VVSAL, INLETS); })),
    entry("IINLS", real("VVSAR", [](R& r) -> F& { return next(r, r.model.inlets.VVSAR, INLETS); })),
    entry("IINLS", real("VVSEQ", [](R& r) -> F& { return next(r, r.model.inlets.VVSEQ, INLETS); },
         [](R& r) { replace_zero(r, r.model.inlets.VVSEQ, "VVSEQ"); })),
    entry("IINLS", real("VVSFQ", [](R& r) -> F& { return next(r, r.model.inlets.VVSFQ, INLETS); },
         [](R& r) { replace_zero(r, r.model.inlets.VVSFQ, "VVSFQ"); })),
    entry("IINLS", real("VVSBQL", [](R& r) -> F& { return next(r, r.model.inlets.VVSBQL, INLETS); },
         [](R& r) { replace_zero(r, r.model.inlets.VVSBQL, "VVSBQL"); })),
    entry("IINLS", real("VVSBQR", [](R& r) -> F& { return next(r, r.model.inlets.VVSBQR, INLETS); },
         [](R& r) { replace_zero(r, r.model.inlets.VVSBQR, "VVSBQR"); })),
    entry("IINLS", real("VVSAQL", [](R& r) -> F& { return next(r, r.model.inlets.VVSAQL, INLETS); },
         [](R& r) { replace_zero(r, r.model.inlets.VVSAQL, "VVSAQL"); })),
    entry("IINLS", real("VVSAQR", [](R& r) -> F& { return next(r, r.model.inlets.VVSAQR, INLETS); },
         [](R& r) { replace_zero(r, r.model.inlets.VVSAQR, "VVSAQR"); })),
    entry("IINLS", real("YINLL", [](R& r) -> F& { return next(r, r.model.inlets.YINLL, INLETS); })),
    entry("IINLS", real("YINLR", [](R& r) -> F& { return next(r, r.model.inlets.YINLR, INLETS); })),
    field("IINLS", real("JBCL", [](R& r) -> F& { return of_inlet(r, "JBCL", r.model.inlets.JBCL); })),
    field("IINLS", real("JBCR", [](R& r) -> F& { return of_inlet(r, "JBCR", r.model.inlets.JBCR); })),
    opens(int8("IMOR", [](R& r) -> I& { return opened_dredging(r).IMOR; })),
    field("IMOR", int8("IDREDS", [](R& r) -> I& { return current_dredging(r, "IDREDS").IDREDS; })),
    field("IMOR", int8("IDREDE", [](R& r) -> I& { return current_dredging(r, "IDREDE").IDREDE; })),
    field("IMOR", real("DRDAY", [](R& r) -> F& { return dredging_days(r); })),
    field("IMOR", real("DREDV", [](R& r) -> F& { return r.DREDV; }, store_dredging_rate)),

    // Sediment budget
    opens(int8("ILEDGV1", [](R& r) -> I& { return counted(r, r.model.budget.NLEDGV, r.model.budget.ILEDGV1, BUDGET_ITEMS); })),
    field("ILEDGV1", int8("ILEDGV2", [](R& r) -> I& { return at_count(r, "ILEDGV2", "ILEDGV1", r.model.budget.NLEDGV, r.model.budget.ILEDGV2, BUDGET_ITEMS); })),
    opens(int8("ILEDGQ1", [](R& r) -> I& { return counted(r, r.model.budget.NLEDGQ, r.model.budget.ILEDGQ1, BUDGET_ITEMS); })),
    field("ILEDGQ1", int8("ILEDGQ2", [](R& r) -> I& { return at_count(r, "ILEDGQ2", "ILEDGQ1", r.model.budget.NLEDGQ, r.model.budget.ILEDGQ2, BUDGET_ITEMS); })),
};
// clang-format on

}  // namespace

std::span<const Keyword> keyword_table() { return KEYWORDS; }

}  // namespace kelprun
