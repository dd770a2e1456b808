// Captures of the packet stream: pcap files with link type USER0. A record is one packet, whole, type byte
// first; a record of zero bytes closes a batch. Timestamps are real time in nanoseconds.
//
// Whatever cannot be read or written throws, with the file, the record and the remedy.
#ifndef TICKMUX_TERMINAL_CAPTURE_H
#define TICKMUX_TERMINAL_CAPTURE_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "terminal/output_file.h"
#include "terminal/times.h"

struct pcap;
struct pcap_dumper;

namespace tools {

struct PcapCloser {
    void operator()(pcap* capture) const;
    void operator()(pcap_dumper* dump) const;
};

struct CaptureRecord {
    uint64_t Number;  // from 1
    Timestamp Time;
    char* Bytes;  // the reader's, until its next record
    int Length;   // 0: a batch ends

    bool EndsBatch() const { return Length == 0; }
};

// Reads a file, or standard input for "-". Also takes microsecond files.
class CaptureReader {
public:
    explicit CaptureReader(const std::string& path);

    // False at the end of the capture.
    bool Next(CaptureRecord& record);

    // The file's name as it is told to the user.
    const std::string& Name() const { return m_Name; }

private:
    std::string m_Name;
    std::unique_ptr<pcap, PcapCloser> m_Capture;
    uint64_t m_nRecords = 0;
};

// Writes a file, which takes its place when it is closed, or standard output for "-".
class CaptureWriter {
public:
    // BadInput for a terminal too: what is in a capture would upset it.
    explicit CaptureWriter(const std::string& path);

    // A packet, type byte first. Longer ones than a capture can hold are the caller's fault.
    void Packet(Timestamp time, const void* bytes, std::size_t length);
    void BatchEnd(Timestamp time);

    uint64_t Packets() const { return m_nPackets; }
    uint64_t Batches() const { return m_nBatches; }

    // To be called at the end. Without it the former file stays.
    void Close();

    const OutputFile& File() const { return m_File; }

private:
    void Record(Timestamp time, const void* bytes, std::size_t length);
    void CheckWritten(bool written) const;

    OutputFile m_File;
    std::unique_ptr<pcap, PcapCloser> m_Capture;
    std::unique_ptr<pcap_dumper, PcapCloser> m_Dump;
    uint64_t m_nPackets = 0;
    uint64_t m_nBatches = 0;
};

}  // namespace tools

#endif
