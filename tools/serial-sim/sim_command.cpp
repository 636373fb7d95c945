// sim_command.cpp: the simulated serial scanner as a command: options, start, serve until told
// to stop.
#include <signal.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <map>
#include <optional>

#include "args.h"
#include "platform/serial/device_map.h"
#include "platform/serial/termios_port.h"
#include "platform/text.h"
#include "serial_scanner_sim.h"

namespace qmk::serialsim {

const char kSimulatorUsage[] =
    "[--baud N] [--data-bits 7|8] [--stop-bits 1|2] [--parity E|O|N] [--padlot] [--line TEXT50]"
    " [--speed-digit C] [--group C] [--model C] [--marker C] [--threshold C] [--options C]"
    " [--fault none|silent|short|long|overlong|wrong-first|lf-only|noise|split] [--gap MS]"
    " [--pieces N] [--no-pace] [--link COMNUMBER]";

namespace {

using platform::serial::Parity;

struct Parsed {
  SimConfig config;
  int link = 0;
};

// Reads the options into `parsed`; on a bad one, says why in *error.
bool Parse(const std::vector<std::string>& words, Parsed* parsed, std::string* error) {
  tools::Args args(words, "serial simulator");
  SimConfig& c = parsed->config;
  if (args.Flag("padlot")) c.padlot = true;
  if (args.Flag("no-pace")) c.paced = false;
  bool ok = true;
  auto text = [&](const char* name, auto accept, auto store) {
    const std::optional<std::string> v = args.Option(name);
    if (!v || !ok) return;
    if (accept(*v)) {
      store(*v);
    } else {
      *error = std::string("bad value for --") + name + ": \"" + *v + "\"";
      ok = false;
    }
  };
  auto number = [&](const char* name, long low, long high, auto store) {
    long n = 0;
    text(name, [&](const std::string& v) { return platform::ParseBoundedInt(v, low, high, &n); },
         [&](const std::string&) { store(n); });
  };
  number("baud", 1, 4000000, [&](long n) { c.setting.baud = static_cast<uint32_t>(n); });
  if (ok && !platform::serial::SpeedConstant(c.setting.baud)) {
    *error = "bad value for --baud: " + std::to_string(c.setting.baud);
    return false;
  }
  number("data-bits", 7, 8, [&](long n) { c.setting.data_bits = static_cast<int>(n); });
  number("stop-bits", 1, 2, [&](long n) { c.setting.stop_bits = static_cast<int>(n); });
  text("parity", [](const std::string& v) { return v == "E" || v == "O" || v == "N"; },
       [&](const std::string& v) { c.setting.parity = static_cast<Parity>(v[0]); });
  text("line", [](const std::string& v) { return v.size() == 50; },
       [&](const std::string& v) { c.line = v; });
  std::map<std::string, char> line_fields;
  for (const char* field : {"speed-digit", "group", "model", "marker", "threshold", "options"})
    text(field, [](const std::string& v) { return v.size() == 1; },
         [&](const std::string& v) { line_fields[field] = v[0]; });
  text("fault", [&](const std::string& v) { return ParseFault(v, &c.fault); }, [](const std::string&) {});
  number("gap", 0, 10000, [&](long n) { c.split_gap_ms = static_cast<int>(n); });
  number("pieces", 1, 52, [&](long n) { c.split_pieces = static_cast<int>(n); });
  number("link", 1, 255, [&](long n) { parsed->link = static_cast<int>(n); });
  if (!ok) return false;
  if (!args.rest().empty()) {
    *error = "unknown option or missing value: " + args.rest().front();
    return false;
  }
  if (!line_fields.empty()) {
    if (!c.line.empty()) { *error = "--line and the single fields exclude each other"; return false; }
    auto f = [&](const char* name, char fallback) {
      auto it = line_fields.find(name);
      return it == line_fields.end() ? fallback : it->second;
    };
    c.line = StatusLine(f("speed-digit", '5'), f("group", '3'), f("model", '5'),
                        f("marker", '-'), f("threshold", '7'), f("options", '8'));
  }
  return true;
}

// Points comN of the device map at the terminal, replacing an old link of that name.
bool Link(int number, const std::string& path, std::string* where, std::string* error) {
  namespace fs = std::filesystem;
  const fs::path folder = platform::serial::DeviceMapFolder();
  const fs::path link = folder / ("com" + std::to_string(number));
  std::error_code ec;
  fs::create_directories(folder, ec);
  if (fs::is_symlink(fs::symlink_status(link, ec))) fs::remove(link, ec);
  fs::create_symlink(path, link, ec);
  if (ec) {
    *error = "can't link " + link.string() + ": " + ec.message();
    return false;
  }
  *where = link.string();
  return true;
}

}  // namespace

int RunSimulatorCommand(const std::vector<std::string>& args, std::FILE* out) {
  Parsed parsed;
  std::string error;
  if (!Parse(args, &parsed, &error)) {
    std::fprintf(stderr, "serial simulator: %s\noptions: %s\n", error.c_str(), kSimulatorUsage);
    return 2;
  }
  // Block the stop signals before the serving thread starts, so that only sigwait sees them.
  sigset_t stop;
  sigemptyset(&stop);
  sigaddset(&stop, SIGINT);
  sigaddset(&stop, SIGTERM);
  pthread_sigmask(SIG_BLOCK, &stop, nullptr);

  PtySerialScanner scanner(parsed.config);
  if (!scanner.Start(&error)) {
    std::fprintf(stderr, "serial simulator: %s\n", error.c_str());
    return 1;
  }
  const LineSettings& s = parsed.config.setting;
  std::fprintf(out, "%s\n", scanner.path().c_str());
  std::fprintf(out, "serving a %s scanner at %s, fault %s\n",
               parsed.config.padlot ? "PadLot" : "status-query",
               platform::serial::Describe(s).c_str(), FaultName(parsed.config.fault));
  std::string link;
  if (parsed.link) {
    if (!Link(parsed.link, scanner.path(), &link, &error)) {
      std::fprintf(stderr, "serial simulator: %s\n", error.c_str());
      return 1;
    }
    std::fprintf(out, "COM%d now names it (%s)\n", parsed.link, link.c_str());
  }
  std::fprintf(out, "Ctrl-C stops it.\n");
  std::fflush(out);
  int signal_number = 0;
  sigwait(&stop, &signal_number);
  if (!link.empty()) std::filesystem::remove(link);
  std::fprintf(out, "stopped after %d commands, %d answered\n", scanner.queries(), scanner.answers());
  return 0;
}

}  // namespace qmk::serialsim
