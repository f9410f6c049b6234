// SPDX-License-Identifier: MIT
// The serial line of the program, and what a desktop provides for it. Nothing here ever blocks.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tessit {

struct SerialPort {
    std::string Name;   // as shown to the user, such as "ttyUSB0"
    std::string device; // what the system opens, such as "/dev/ttyUSB0"

    bool operator==(const SerialPort&) const = default;
};

enum class SerialParity { none, odd, even };

struct SerialSettings {
    int Baud = 19200;
    int Bits = 8;
    SerialParity Parity = SerialParity::none;
    int Stop = 1;
    bool XON = false; // software flow control
    bool CTS = false; // hardware flow control
    bool DTR = false; // flow control by DTR
    bool DataTerminalReady = false;
    bool RequestToSend = false;

    bool operator==(const SerialSettings&) const = default;
};

// An open line. Lines that a port lacks (RTS on a pseudo-terminal) are no error.
class SerialLine {
public:
    virtual ~SerialLine() = default;
    virtual bool alive() = 0; // false once the port has vanished or hung up
    virtual void configure(const SerialSettings& settings) = 0;
    virtual void write(std::span<const std::uint8_t> bytes) = 0; // queues and sends off; a dead line swallows them
    virtual std::vector<std::uint8_t> read(int count) = 0;       // at most count, what is there; dead: nothing
    virtual void flush() = 0;                                    // sends out what waits to be sent
    virtual void reset() = 0;                                    // empties both directions
};

// The program that has a port, as far as the system tells.
struct PortHolder {
    std::string program;
    int process = 0;
};

class SerialPorts {
public:
    virtual ~SerialPorts() = default;
    // The system's ports in its order, headed by running emulated generators.
    virtual std::vector<SerialPort> list() = 0;
    // Null when the port can't be opened (absent, busy, no right).
    virtual std::unique_ptr<SerialLine> open(const SerialPort& port, const SerialSettings& settings) = 0;
    virtual std::optional<PortHolder> holder(const SerialPort&) { return std::nullopt; }
};

class Serial {
public:
    explicit Serial(SerialPorts& ports) : ports_(ports) {}

    const tessit::SerialPort& SerialPort() const { return port_; }
    void SetSerialPort(const tessit::SerialPort& port); // another port: an open line is closed

    bool Open(); // true on success; on a line that is open and alive it does nothing and is true
    void Close();
    bool is_open() const { return line_ != nullptr; }
    std::optional<PortHolder> other_holder() const; // none while the line is open

    void Write(std::span<const std::uint8_t> bytes);
    void Write(std::uint8_t byte) { Write({&byte, 1}); }
    std::vector<std::uint8_t> Read(int count);
    int ReadByte(); // -1 where none is waiting
    void Flush();
    void Reset();
    void Poll() {} // what arrives is taken in at every Read; kept for the order of a port's set-up

    const SerialSettings& settings() const { return settings_; }
    void SetDataTerminalReady(bool on) { set(&SerialSettings::DataTerminalReady, on); }
    void SetDTR(bool on) { set(&SerialSettings::DTR, on); }
    void SetCTS(bool on) { set(&SerialSettings::CTS, on); }
    void SetBaud(int baud) { set(&SerialSettings::Baud, baud); }
    void SetBits(int bits) { set(&SerialSettings::Bits, bits); }
    void SetParity(SerialParity parity) { set(&SerialSettings::Parity, parity); }
    void SetStop(int stop) { set(&SerialSettings::Stop, stop); }
    void SetXON(bool on) { set(&SerialSettings::XON, on); }
    void SetRequestToSend(bool on) { set(&SerialSettings::RequestToSend, on); }

private:
    template <class Value> using Member = Value SerialSettings::*;
    template <class Value> void set(Member<Value> member, Value value) {
        settings_.*member = value;
        if (line_ != nullptr) {
            line_->configure(settings_);
        }
    }

    SerialPorts& ports_;
    tessit::SerialPort port_;
    SerialSettings settings_;
    std::unique_ptr<SerialLine> line_;
};

} // namespace tessit
