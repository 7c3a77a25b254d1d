#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <variant>

#include "input/input_files.h"
#include "input/spans.h"
#include "model/model.h"
#include "text/report.h"

namespace kelprun {

/// The configuration while it is being read: the records that it fills, and what only lives until
/// the end of the file.
struct Reading {
  Model& model;
  InputFiles& files;
  Report& report;

  Spans K1{"K1", "IK1END"};
  Spans K2{"K2", "IK2END"};
  Spans HAMP{"HAMP", "IHAMPEND"};
  Spans THETAAMP{"THETAAMP", "ITHETAAMPEND"};
  Spans THETADEL{"THETADEL", "ITHETADELEND"};
  Spans BERMHT{"BERMHT", "IBERMHTEND"};
  Spans DCLOS{"DCLOS", "IDCLOSEND"};

  Array1<float> DX{capacity::CELLS};
  std::string wave_file_name{};     ///< the last one given
  float last_DDG = 0.0f;            ///< the last depth at a diffracting groin given
  std::int32_t dredge_counter = 0;  ///< one counter for all inlets
  float DRDAY = 0.0f;
  float DREDV = 0.0f;
  /// First entries of BPDATS, BPDATE, IBPS, IBPE given by their second names ahead of the first.
  Array1<std::int32_t> QQ{4};
  /// Takes what goes past a capacity or is read and discarded.
  std::tuple<std::int32_t, float, double, std::string> dropped{};
  bool marker = false;  ///< the file-type marker has been seen

  std::int64_t line = 0;   ///< number of the line that is being read
  std::string bad_item{};  ///< the part of its value that could not be decoded, if only a part
};

/// How a value is decoded.
enum class Form {
  marker,    ///< nothing is read
  text,      ///< the value as it stands
  name,      ///< the value less its double quotes
  int8,      ///< a whole number in the first 8 columns, blanks ignored
  logical7,  ///< an optional point, then T or F
  integer,   ///< one item of a free-format read
  real,
  real64,
  int_list,  ///< a free-format read into a whole array
  real_list,
  items  ///< a free-format line of its own kind
};

using StoreInt = std::int32_t& (*)(Reading&);
using StoreReal = float& (*)(Reading&);
using StoreReal64 = double& (*)(Reading&);
using StoreBool = bool& (*)(Reading&);
using StoreText = std::string& (*)(Reading&);
using StoreInts = Array1<std::int32_t>& (*)(Reading&);
using StoreReals = Array1<float>& (*)(Reading&);
/// Reads a line of its own kind; false where an item cannot be decoded.
using StoreItems = bool (*)(Reading&, std::string_view value);

/// One keyword of the configuration: its name, the form of its value and where the value goes.
struct Keyword {
  std::string_view name;
  Form form = Form::marker;
  std::variant<std::monostate, StoreInt, StoreReal, StoreReal64, StoreBool, StoreText, StoreInts,
               StoreReals, StoreItems>
      store{};
  void (*then)(Reading&) = nullptr;  ///< what happens besides, once the value is stored
  std::string_view failure = {};     ///< fatal message of a decoding failure of its own
  int width = 0;                     ///< columns of a text
  /// The keyword whose lines open the record of a list keyword, itself where it is that one; empty
  /// for a keyword that is no list.
  std::string_view opener = {};
  /// The value goes to the record opened last, wherever the line stands; otherwise the n-th line
  /// belongs to the n-th record.
  bool to_last_record = false;
};

/// All keywords of the configuration file, in one place.
std::span<const Keyword> keyword_table();

}  // namespace kelprun
