// defaults show [--json]: the user's default processing method and default component,
//   every field by name, with the completeness of each section.
// defaults write-sample: a complete, realistic default method and component, written
//   through the library's writers, for a new user or a test machine.
// defaults reset: see defaults_reset_command.cpp.
#include <iostream>

#include "record_json.h"
#include "tool.h"
#include "vglobal/compat/unicode.h"

namespace arvenis_settings {
namespace {

Json Sections(const std::vector<vglobal::SectionResult>& results) {
  Json j;
  for (const vglobal::SectionResult& r : results)
    j[vglobal::WideToUtf8(r.section)] = r.complete ? "complete" : "incomplete";
  return j;
}

// The text of `j`. A stored string may hold an unpaired surrogate, which is not Unicode
// and which JSON cannot carry: it shows as U+FFFD.
std::string Dump(const Json& j, int indent) {
  return j.dump(indent, ' ', false, Json::error_handler_t::replace);
}

// Reads what `defaults show` shows: the records as the applications would get them.
Json ReadDefaults() {
  CProcMethod method;
  CComponentIO component;
  const auto methodSections = vglobal::ReadDefaultProcMethodSections(&method);
  const auto componentSections = vglobal::ReadComponentDefaultSections(&component);
  Json j;
  j["method"]["complete"] = vglobal::AllComplete(methodSections) == 1;
  j["method"]["sections"] = Sections(methodSections);
  j["method"]["record"] = ToJson(method);
  j["component"]["complete"] = vglobal::AllComplete(componentSections) == 1;
  j["component"]["sections"] = Sections(componentSections);
  j["component"]["record"] = ToJson(component);
  return j;
}

// Prints a record as "Name = value" lines, nested records and list elements by path.
void PrintFields(const Json& j, const std::string& prefix) {
  for (auto it = j.begin(); it != j.end(); ++it) {
    const std::string name = j.is_array() ? prefix + "[" + std::to_string(it - j.begin()) + "]"
                                          : (prefix.empty() ? "" : prefix + ".") + it.key();
    if (it->is_structured()) {
      if (it->empty()) std::cout << "  " << name << " = (none)\n";
      PrintFields(*it, name);
    } else {
      std::cout << "  " << name << " = " << Dump(*it, -1) << '\n';
    }
  }
}

void PrintText(const Json& defaults) {
  for (const char* part : {"method", "component"}) {
    const Json& p = defaults[part];
    std::cout << (std::string(part) == "method" ? "Default processing method" : "Default component")
              << (p["complete"].get<bool>() ? " (complete)" : " (incomplete)") << '\n';
    for (auto it = p["sections"].begin(); it != p["sections"].end(); ++it)
      std::cout << "  section " << it.key() << ": " << it->get<std::string>() << '\n';
    PrintFields(p["record"], "");
    std::cout << '\n';
  }
}

CLevel Level(const wchar_t* name, double amount, std::initializer_list<double> areas) {
  CLevel level;
  level.LevelName(name);
  level.BaseAmount(amount);
  level.TestPercent(15.0);
  for (double area : areas) {
    CReplicate replicate;
    replicate.Amount(amount);
    replicate.Area(area);
    replicate.Height(area / 12.0);
    replicate.ResultFileName(L"cal_" + CString(name) + L".rst");
    level.AddReplicate(replicate);
  }
  return level;
}

// A caffeine assay on a single-quadrupole instrument: what a lab would keep as its
// starting point. Every switch that gates a group of values is on, so that the
// writers store as much as they can.
void WriteSample() {
  CComponentIO c;
  c.ComponentName(L"Caffeine");
  c.DetectorType(VIRTUAL_DEVICE_MS);
  CVC_FilterStruct parser(9, 2, 2);
  if (parser.ParseFilterStructString(L"+ c SIM ms [194.50-195.50]", -1))
    c.Filter(parser.ToCFilter());
  c.Keys(L"caffeine;1,3,7-trimethylxanthine");
  c.RTSearchWindow(30.0);
  c.DisplayWindowWidth(60.0);
  c.AdjustExpectedRT(1);
  c.RTReference(L"Caffeine-d9");
  c.SmoothingPoints(5);
  c.ValleyDetection(1);
  c.ExpectedPeakWidth(6.0);
  c.ConstrainPeak(1);
  c.SNThreshold(10.0);
  c.PeakDetectionIndex(1);
  c.IonRatioConfirmation(1);
  c.CurveIndex(1);
  c.WeightingIndex(2);
  c.CalibrationUnits(L"ng/mL");
  c.ReportUnits(L"ng/mL");
  c.AddCalLevel(Level(L"Cal 1", 1.0, {10250.0, 10410.0}));
  c.AddCalLevel(Level(L"Cal 2", 5.0, {51800.0, 52240.0}));
  c.AddCalLevel(Level(L"Cal 3", 25.0, {262300.0, 259900.0}));
  c.AddCalLevel(Level(L"Cal 4", 100.0, {1041000.0, 1048500.0}));
  c.AddQCLevel(Level(L"QC low", 3.0, {31100.0}));
  c.AddQCLevel(Level(L"QC high", 80.0, {829000.0}));
  c.AreaFlagThreshold(1);
  c.ResolutionChecksEnabled(1);
  c.SymmetryChecksEnabled(1);
  c.PeakClassificationChecksEnabled(1);
  WriteComponentInfo(&c, vglobal::kWriteWholeComponent);

  CProcMethod m;
  CPeakDetection& pd = m.PeakDetection();
  pd.DetectorType(VIRTUAL_DEVICE_MS);
  pd.Filter(c.Filter());
  pd.SmoothingPoints(5);
  pd.ValleyDetection(1);
  pd.ConstrainPeak(1);
  pd.LimitPeakEnabled(1);
  pd.RelPeakEnabled(1);
  WritePeakDetectionInfo(&pd);
  WriteAdvChromatogramOptionsInfo(&pd);
  WriteAdvDetectOptionsInfo(&c, &m.Options());
  WriteIdentificationOptions(&m.Options());
  CreateRegistryEntries(&pd, &m.Options(), CString(L"Explore\\Default Peak Detection"));

  m.SpecEnhanceOptions().SpecEnabled(1);
  WriteSpecEnhancementInfo(&m.SpecEnhanceOptions());
  m.LibrarySearchOptions().AppendUserLib(1);
  m.LibrarySearchOptions().AddSearchListItem(L"mainlib");
  m.LibrarySearchOptions().AddSearchListItem(L"replib");
  WriteLibrarySearchInfo(&m.LibrarySearchOptions());
  m.Constraints().MolWtEnabled(1);
  WriteConstraintsInfo(&m.Constraints());

  CReport report;
  report.Name(L"Quantitation Report");
  m.AddReport(report);
  report.Name(L"Calibration Curve");
  report.Unknowns(0);
  m.AddReport(report);
  CSummaryReport summary;
  summary.Name(L"Batch Summary");
  m.AddSummaryReport(summary);
  CProgram program;
  program.ProgramName(L"/opt/arvenis/bin/export-lims");
  program.Parameters(L"--format csv");
  program.Stds(0);
  m.AddProgram(program);
  WriteAllReportInfo(&m);
  WriteAllSummaryReportInfo(&m);
  WriteAllProgramInfo(&m);
}

}  // namespace

void AddDefaultsCommand(CLI::App& app) {
  CLI::App* defaults = app.add_subcommand(
      "defaults",
      "The user's default processing method and component (Processing Setup\\Defaults)");
  defaults->require_subcommand(1);

  auto json = std::make_shared<bool>(false);
  CLI::App* show = defaults->add_subcommand(
      "show",
      "Print the default method and component as the applications read them, "
      "with each section's completeness");
  show->add_flag("--json", *json, "Print JSON instead of text");
  show->callback([json] {
    // The user store is opened for reading only; a user without one sees the
    // records' own defaults.
    if (!OpenStore(false, Access::Read)) {
      std::cerr << "arvenis-settings: no settings are stored yet ("
                << vglobal::SettingsStorePath(HKEY_CURRENT_USER)
                << "); showing the built-in defaults\n";
      // Reading through an empty store in memory: looking must not create the file.
      vglobal::SetSettingsStore(HKEY_CURRENT_USER, vglobal::MakeMemorySettingsStore());
    }
    const Json defaults = ReadDefaults();
    if (*json)
      std::cout << Dump(defaults, 2) << '\n';
    else
      PrintText(defaults);
  });

  CLI::App* sample = defaults->add_subcommand(
      "write-sample", "Write a complete, realistic default method and component for this user");
  sample->callback([] {
    auto store = OpenStore(false, Access::Create);  // or says why it cannot
    // The whole method and component as one save: all of it is stored or none.
    vglobal::SettingsTransaction transaction(store);
    WriteSample();
    if (auto e = transaction.Commit(); e != vglobal::SettingsError::None) Fail(e, "save");
    if (auto e = store->Sync(); e != vglobal::SettingsError::None) Fail(e, "sync");
    std::cerr << "arvenis-settings: sample defaults written to "
              << vglobal::SettingsStorePath(HKEY_CURRENT_USER) << '\n';
  });

  AddDefaultsResetCommand(*defaults);
}

}  // namespace arvenis_settings
