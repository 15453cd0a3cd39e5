// The processing-method records as JSON, every field under its own name, for
// `arvenis-settings defaults show`. The fields come from each record's field list and
// keep its order; the lists a record owns follow its fields.
#include "record_json.h"

#include <cmath>
#include <type_traits>

#include "vglobal/compat/unicode.h"

namespace arvenis_settings {
namespace {

Json Text(const CString& text) {
  return vglobal::WideToUtf8(text.str());
}
// JSON has no NaN or infinity: such a value shows as null.
Json Number(double value) {
  return std::isfinite(value) ? Json(value) : Json(nullptr);
}

template <typename T>
Json Value(const T& value) {
  if constexpr (std::is_same_v<T, CString>)
    return Text(value);
  else if constexpr (std::is_floating_point_v<T>)
    return Number(value);
  else
    return static_cast<long long>(value);  // whole numbers and enumerations
}

// Every field of the record's field list, under its own name, in list order.
template <typename Record>
Json Fields(const Record& r) {
  Json j = Json::object();
  Record::ForEachField([&](auto field) { j[field.name] = Value(field.get(r)); });
  return j;
}

template <typename Item>
Json List(int count, Item item) {
  Json list = Json::array();
  for (int i = 0; i < count; ++i) list.push_back(item(i));
  return list;
}

Json ToJson(const CLevel& r) {
  Json j = Fields(r);
  j["Replicates"] = List(r.NumReplicates(), [&](int i) { return Fields(r[i]); });
  return j;
}

Json ToJson(const CLibrarySearchOptions& r) {
  Json j = Fields(r);
  j["SearchList"] = Json::array();
  for (const CString& library : r.SearchList()) j["SearchList"].push_back(Text(library));
  return j;
}

Json ToJson(const CConstraints& r) {
  Json j = Fields(r);
  j["IndividualConstraints"] =
      List(r.NumIndividualConstraints(), [&](int i) { return Fields(r.GetIndConstraint(i)); });
  j["IonConstraints"] =
      List(r.NumIonConstraints(), [&](int i) { return Fields(r.GetIonConstraint(i)); });
  return j;
}

Json ToJson(const CPeakDetection& r) {
  Json j = Fields(r);
  j["AlgorithmName"] = vglobal::PeakDetectionAlgorithmName(r.Algorithm());
  j["Filter"] = Text(r.Filter().GetFilterString(-1, -1, 2));
  return j;
}

}  // namespace

Json ToJson(const CComponentIO& c) {
  Json j = Fields(static_cast<const vglobal::ComponentIdentification&>(c));
  j["Filter"] = Text(c.Filter().GetFilterString(-1, -1, 2));
  j.update(Fields(static_cast<const vglobal::ComponentCalibration&>(c)));
  j["CalLevels"] = List(c.NumCalLevels(), [&](int i) { return ToJson(c.GetCalLevel(i)); });
  j["QCLevels"] = List(c.NumQCLevels(), [&](int i) { return ToJson(c.GetQCLevel(i)); });
  j["SurrogateLevels"] =
      List(c.NumSurrogateCalLevels(), [&](int i) { return ToJson(c.GetSurrogateLevel(i)); });
  j["MassList"] = List(c.NumMIPairs(), [&](int i) { return Fields(c.GetMIPair(i)); });
  j["MassRanges"] = List(c.NumMassRanges(), [&](int i) { return Fields(c[i]); });
  j.update(Fields(static_cast<const vglobal::ComponentFlags&>(c)));
  return j;
}

Json ToJson(const CProcMethod& m) {
  Json j;
  j["PeakDetection"] = ToJson(m.PeakDetection());
  j["Options"] = Fields(m.Options());
  j["Constraints"] = ToJson(m.Constraints());
  j["SpecEnhanceOptions"] = Fields(m.SpecEnhanceOptions());
  j["LibrarySearchOptions"] = ToJson(m.LibrarySearchOptions());
  j["Reports"] = List(m.NumReports(), [&](int i) { return Fields(m.GetReport(i)); });
  j["SummaryReports"] =
      List(m.NumSummaryReports(), [&](int i) { return Fields(m.GetSummaryReport(i)); });
  j["Programs"] = List(m.NumPrograms(), [&](int i) { return Fields(m.GetProgram(i)); });
  return j;
}

}  // namespace arvenis_settings
