// port_list.h: the list of serial ports that hosts and the configuration dialog offer.
#pragma once

#include <string>
#include <vector>

#include "platform/serial/sysfs_ports.h"
#include "qmk/QmkScan.h"

namespace qmk::discovery {

// "COM5" out of "USB Serial (COM5)": from "COM" up to the first ")"; empty when no ")" follows;
// the whole name when it has no "COM".
std::string PortNameFromFriendlyName(const std::string& friendly);

// The elements for the devices that have a friendly name and a description, in order.
std::vector<SSerInfo> PortsFromFacts(const std::vector<platform::serial::DeviceFacts>& facts);

// Drops, when `check_open`, the ports that can't be opened now (held by another program);
// then fills empty friendly names and descriptions from the names they have.
void FinishPortList(std::vector<SSerInfo>& ports, bool check_open);

// The whole enumeration of this machine's ports. Throws the error text as a std::string.
void ScnEnumSerialPorts(std::vector<SSerInfo>& ports, int check_open);

}  // namespace qmk::discovery
