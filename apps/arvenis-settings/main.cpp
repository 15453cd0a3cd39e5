// arvenis-settings: reads, changes and checks the suite's settings stores.
//
// Exit codes: 0 success, 1 bad input (message on standard error), 2 store
// unavailable. Data goes to standard output, messages to standard error.
#include <exception>
#include <iostream>
#include <new>

#include "tool.h"

int main(int argc, char** argv) {
  CLI::App app("Reads, changes and checks the Arvenis settings stores.", "arvenis-settings");
  app.require_subcommand(1);
  arvenis_settings::AddQueryCommand(app);
  arvenis_settings::AddSetCommand(app);
  arvenis_settings::AddDeleteCommand(app);
  arvenis_settings::AddCheckCommand(app);
  arvenis_settings::AddInitCommand(app);
  arvenis_settings::AddDefaultsCommand(app);
  arvenis_settings::AddExportCommand(app);
  arvenis_settings::AddImportCommand(app);
  try {
    app.parse(argc, argv);
  } catch (const CLI::CallForHelp& e) {
    return app.exit(e);
  } catch (const CLI::RuntimeError& e) {
    return e.get_exit_code();  // the command has said why
  } catch (const CLI::ParseError& e) {
    app.exit(e);
    return arvenis_settings::kBadInput;
  } catch (const std::bad_alloc&) {
    // An import file far larger than this machine can hold; nothing was changed.
    std::cerr << "arvenis-settings: not enough memory for this input\n";
    return arvenis_settings::kBadInput;
  } catch (const std::exception& e) {
    // The last resort: every known failure has its own message and exit code.
    std::cerr << "arvenis-settings: stopped by an unexpected error: "
              << arvenis_settings::Escaped(e.what()) << '\n';
    return arvenis_settings::kUnavailable;
  }
  return arvenis_settings::kSuccess;
}
