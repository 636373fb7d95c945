// sim_command.cpp: the simulated serial scanner as a command: options, start, serve until told
// to stop.
#include <signal.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <map>
#include <optional>

#include "platform/serial/device_map.h"
#include "platform/serial/termios_port.h"
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

bool Number(const std::string& text, long low, long high, long* value) {
  char* end = nullptr;
  errno = 0;
  *value = std::strtol(text.c_str(), &end, 10);
  return !text.empty() && *end == '\0' && errno == 0 && *value >= low && *value <= high;
}

// Reads the options into `parsed`; on a bad one, says why in *error.
bool Parse(const std::vector<std::string>& args, Parsed* parsed, std::string* error) {
  std::map<std::string, char> line_fields;
  SimConfig& c = parsed->config;
  for (size_t i = 0; i < args.size(); ++i) {
    const std::string& opt = args[i];
    if (opt == "--padlot") { c.padlot = true; continue; }
    if (opt == "--no-pace") { c.paced = false; continue; }
    if (i + 1 >= args.size()) { *error = "unknown option or missing value: " + opt; return false; }
    const std::string& v = args[++i];
    long n = 0;
    auto want = [&](bool ok) { if (!ok) *error = "bad value for " + opt + ": \"" + v + "\""; return ok; };
    if (opt == "--baud") {
      if (!want(Number(v, 1, 4000000, &n) && platform::serial::SpeedConstant(static_cast<uint32_t>(n)))) return false;
      c.setting.baud = static_cast<uint32_t>(n);
    } else if (opt == "--data-bits") {
      if (!want(Number(v, 7, 8, &n))) return false;
      c.setting.data_bits = static_cast<int>(n);
    } else if (opt == "--stop-bits") {
      if (!want(Number(v, 1, 2, &n))) return false;
      c.setting.stop_bits = static_cast<int>(n);
    } else if (opt == "--parity") {
      if (!want(v == "E" || v == "O" || v == "N")) return false;
      c.setting.parity = static_cast<Parity>(v[0]);
    } else if (opt == "--line") {
      if (!want(v.size() == 50)) return false;
      c.line = v;
    } else if (opt == "--speed-digit" || opt == "--group" || opt == "--model" || opt == "--marker" ||
               opt == "--threshold" || opt == "--options") {
      if (!want(v.size() == 1)) return false;
      line_fields[opt] = v[0];
    } else if (opt == "--fault") {
      if (!want(ParseFault(v, &c.fault))) return false;
    } else if (opt == "--gap") {
      if (!want(Number(v, 0, 10000, &n))) return false;
      c.split_gap_ms = static_cast<int>(n);
    } else if (opt == "--pieces") {
      if (!want(Number(v, 1, 52, &n))) return false;
      c.split_pieces = static_cast<int>(n);
    } else if (opt == "--link") {
      if (!want(Number(v, 1, 255, &n))) return false;
      parsed->link = static_cast<int>(n);
    } else {
      *error = "unknown option " + opt;
      return false;
    }
  }
  if (!line_fields.empty()) {
    if (!c.line.empty()) { *error = "--line and the single fields exclude each other"; return false; }
    auto f = [&](const char* name, char fallback) {
      auto it = line_fields.find(name);
      return it == line_fields.end() ? fallback : it->second;
    };
    c.line = StatusLine(f("--speed-digit", '5'), f("--group", '3'), f("--model", '5'),
                        f("--marker", '-'), f("--threshold", '7'), f("--options", '8'));
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
