#include "input/boundary_checks.h"

#include "input/refusal.h"
#include "input/structure_lists.h"

namespace kelprun {

namespace {

enum BoundaryType { PINNED = 0, GROIN = 1, GATED_GROIN = 2, MOVING = 3 };

void check_type(const Boundary& b, std::initializer_list<std::string_view> lines) {
  if (b.BCTYPE < PINNED || b.BCTYPE > MOVING) refuse(lines);
}

void pin(Boundary& b, std::initializer_list<std::string_view> warning) {
  if (b.MOVY == 0.0f) return;
  warn(warning);
  b.MOVY = 0.0f;
}

void set_movement(Boundary& b, const Model& m, std::initializer_list<std::string_view> lines) {
  if (b.MOVPER < 1 || b.MOVPER > 3) refuse(lines);
  b.MOVSTEP = boundary_movement(b, m.settings.CONV, m.clock.NTS, m.clock.SPD);
}

void convert_gate(Boundary& b, float CONV, std::initializer_list<std::string_view> warning) {
  if (b.GROINY == 0.0f) warn(warning);
  b.GROINY *= CONV;
}

}  // namespace

float boundary_movement(const Boundary& boundary, float CONV, std::int32_t NTS, float SPD) {
  if (boundary.BCTYPE != MOVING) return 0.0f;
  const float distance = boundary.MOVY * CONV;
  switch (boundary.MOVPER) {
    case 1:
      return distance / static_cast<float>(NTS);
    case 2:
      return distance / SPD;
    default:
      return distance;
  }
}

void check_left_boundary(Model& m) {
  Boundary& b = m.boundaries.left;
  const bool groin = has_groin_at(m.groins, 1);
  check_type(
      b, {" ERROR. INVALID BOUNDARY CONDITION SPECIFICATION ON",
          " LEFT-HAND MODEL BOUNDARY.  PLEASE CHANGE VALUEOF", " \"LBCTYPE\" IN YOUR .cfg FILE."});
  if (b.BCTYPE == PINNED) {
    if (groin)
      refuse({" ERROR. BOTH \"PINNED-BEACH\" BOUNDARY CONDITION AND A",
              " GROIN ARE SPECIFIED ON THE LEFT-HAND MODEL BOUNDARY.",
              " NOT ALLOWED. PLEASE CHANGE YOUR .cfg FILE."});
    insert_left_end(m.tips);
    pin(b, {" WARNING. \"PINNED-BEACH\" BOUNDARY CONDITION SPECIFIED",
            " ON LEFT-HAND MODEL BOUNDARY AND A RATE OF SHORELINE",
            " CHANGE WAS ALSO SPECIFIED.  RATE OF SHORELINE CHANGE",
            " ON LEFT-HAND BOUNDARY REASSIGNED TO ZERO."});
  } else if (b.BCTYPE == MOVING) {
    if (groin)
      refuse({" ERROR. BOTH \"MOVING-SHORELINE\" BOUNDARY CONDITION AND",
              " A GROIN ARE SPECIFIED ON THE LEFT-HAND MODEL BOUNDARY.",
              " NOT ALLOWED. PLEASE CHANGE YOUR .cfg FILE."});
    insert_left_end(m.tips);
    set_movement(b, m,
                 {" ERROR. INVALID BOUNDARY MOVEMENT PERIOD SPECIFICATION",
                  " ON LEFT-HAND MODEL BOUNDARY.  PLEASE CHANGE VALUE OF",
                  " \"LMOVPER\" IN YOUR .cfg FILE."});
  } else {
    // Nothing asks whether a groin stands here at all; the right end does ask.
    convert_gate(b, m.settings.CONV,
                 {" WARNING. DISTANCE FROM GROIN TIP ON LEFT-HAND BOUNDARY",
                  " TO SHORELINE OUTSIDE GRID SPECIFIED AS ZERO. PLEASE",
                  " VERIFY VALUE OF \"LGROINY\" IN YOUR .cfg FILE."});
    if (!has_diffracting_groin_at(m.groins, 1)) insert_left_end(m.tips);
  }
}

void check_right_boundary(Model& m) {
  Boundary& b = m.boundaries.right;
  const std::int32_t wall = m.grid.NX + 1;
  const bool groin = has_groin_at(m.groins, wall);
  check_type(b, {" ERROR. INVALID BOUNDARY CONDITION SPECIFICATION ON",
                 " RIGHT-HAND MODEL BOUNDARY.  PLEASE CHANGE VALUE OF",
                 " \"RBCTYPE\" IN YOUR .cfg FILE."});
  if (b.BCTYPE == PINNED) {
    if (groin)
      refuse({" ERROR. BOTH \"PINNED-BEACH\" BOUNDARY CONDITION AND A",
              " GROIN ARE SPECIFIED ON THE RIGHT-HAND MODEL BOUNDARY.",
              " NOT ALLOWED. PLEASE CHANGE YOUR .cfg FILE."});
    append_right_end(m.tips);
    pin(b, {" WARNING. \"PINNED-BEACH\" BOUNDARY CONDITION SPECIFIED",
            " ON RIGHT-HAND MODEL BOUNDARY AND A RATE OF SHORELINE",
            " CHANGE WAS ALSO SPECIFIED.  RATE OF SHORELINE CHANGE",
            " ON RIGHT-HAND BOUNDARY REASSIGNED TO ZERO."});
  } else if (b.BCTYPE == MOVING) {
    if (groin)
      refuse({" ERROR. BOTH \"MOVING-SHORELINE\" BOUNDARY CONDITION AND",
              " A GROIN ARE SPECIFIED ON THE RIGHT-HAND MODEL  BOUNDARY.",
              " NOT ALLOWED. PLEASE CHANGE YOUR .cfg FILE."});
    append_right_end(m.tips);
    set_movement(b, m,
                 {" ERROR. INVALID BOUNDARY MOVEMENT PERIOD SPECIFICATION",
                  " ON RIGHT-HAND MODEL BOUNDARY.  PLEASE CHANGE VALUE OF",
                  " \"RMOVPER\" IN YOUR .cfg FILE."});
  } else {
    if (!groin)
      refuse(
          {" ERROR. GATED BOUNDARY CONDITION SPECIFIED AT N+1,", "BUT NO GROIN SPECIFIED AT N+1"});
    convert_gate(b, m.settings.CONV,
                 {" WARNING. DISTANCE FROM GROIN TIP ON RIGHT-HAND BOUNDARY",
                  " TO SHORELINE OUTSIDE GRID SPECIFIED AS ZERO. PLEASE",
                  " VERIFY VALUE OF \"RGROINY\" IN YOUR .cfg FILE."});
    if (!has_diffracting_groin_at(m.groins, wall)) append_right_end(m.tips);
  }
}

}  // namespace kelprun
