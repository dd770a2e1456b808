#include "terminal/capture.h"

#include <pcap/pcap.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "terminal/errors.h"

namespace tools {

namespace {

constexpr int kLinkType = DLT_USER0;
constexpr int kSnapLength = 65535;
constexpr int64_t kLastSecond = 9'000'000'000;  // in nanoseconds still a 64-bit number

std::FILE* OpenToRead(const std::string& path) {
    std::FILE* file = path == "-" ? stdin : std::fopen(path.c_str(), "rb");
    if (file == nullptr) {
        throw BadInput(path + ": " + std::strerror(errno) +
                       "; check the path, or make a capture with feedgen");
    }
    return file;
}

std::string LinkName(int link) {
    const char* name = pcap_datalink_val_to_name(link);
    return std::to_string(link) + (name == nullptr ? "" : std::string(" (") + name + ")");
}

}  // namespace

void PcapCloser::operator()(pcap* capture) const {
    pcap_close(capture);
}

void PcapCloser::operator()(pcap_dumper* dump) const {
    pcap_dump_close(dump);
}

// ------------------------------------------------------------------ reading

CaptureReader::CaptureReader(const std::string& path) : m_Name(path == "-" ? "standard input" : path) {
    std::FILE* const file = OpenToRead(path);
    char error[PCAP_ERRBUF_SIZE] = "";
    m_Capture.reset(pcap_fopen_offline_with_tstamp_precision(file, PCAP_TSTAMP_PRECISION_NANO, error));
    if (m_Capture == nullptr) {
        if (file != stdin) {
            std::fclose(file);
        }
        throw BadInput(m_Name + ": not a capture (" + error + "); give a pcap file such as feedgen writes");
    }
    if (const int link = pcap_datalink(m_Capture.get()); link != kLinkType) {
        throw BadInput(
            m_Name + ": link type " + LinkName(link) + ", expected " + std::to_string(kLinkType) +
            " (USER0); give a capture of the packet stream, or set its type with editcap -T user0");
    }
}

bool CaptureReader::Next(CaptureRecord& record) {
    pcap_pkthdr* header = nullptr;
    const u_char* bytes = nullptr;
    const int result = pcap_next_ex(m_Capture.get(), &header, &bytes);
    if (result == PCAP_ERROR_BREAK) {
        return false;
    }
    ++m_nRecords;
    const auto place = [this] { return m_Name + ": record " + std::to_string(m_nRecords); };
    if (result != 1) {
        throw BadInput(place() + " cannot be read (" + pcap_geterr(m_Capture.get()) +
                       "); write the capture anew, or keep the records before this one with editcap");
    }
    if (header->caplen != header->len) {
        throw BadInput(place() + " holds " + std::to_string(header->caplen) + " of " +
                       std::to_string(header->len) + " bytes; capture whole packets, without a snap length");
    }
    if (header->ts.tv_sec < 0 || header->ts.tv_sec > kLastSecond) {
        throw BadInput(place() + " has a time out of reach; set it right with editcap -t");
    }
    // The module takes packets as writable, but leaves them alone.
    record = {
        m_nRecords,
        Timestamp(std::chrono::seconds(header->ts.tv_sec) + std::chrono::nanoseconds(header->ts.tv_usec)),
        reinterpret_cast<char*>(const_cast<u_char*>(bytes)), static_cast<int>(header->caplen)};
    return true;
}

// ------------------------------------------------------------------ writing

CaptureWriter::CaptureWriter(const std::string& path) : m_File(path) {
    std::FILE* const file = m_File.OpenStream();
    if (isatty(fileno(file)) != 0) {
        std::fclose(file);
        throw BadInput("a capture is not for a terminal; name a file with --output, or use a pipe");
    }
    m_Capture.reset(pcap_open_dead_with_tstamp_precision(kLinkType, kSnapLength, PCAP_TSTAMP_PRECISION_NANO));
    m_Dump.reset(m_Capture == nullptr ? nullptr : pcap_dump_fopen(m_Capture.get(), file));
    if (m_Dump == nullptr) {
        std::fclose(file);
        throw Failure(m_File.Name() + ": out of memory");
    }
}

void CaptureWriter::Packet(Timestamp time, const void* bytes, std::size_t length) {
    Record(time, bytes, length);
    ++m_nPackets;
}

void CaptureWriter::BatchEnd(Timestamp time) {
    Record(time, "", 0);
    ++m_nBatches;
}

void CaptureWriter::Record(Timestamp time, const void* bytes, std::size_t length) {
    const auto second = std::chrono::floor<std::chrono::seconds>(time);
    pcap_pkthdr header{};
    header.ts.tv_sec = second.time_since_epoch().count();
    header.ts.tv_usec = (time - second).count();  // nanoseconds, as the file's precision says
    header.caplen = static_cast<bpf_u_int32>(length);
    header.len = header.caplen;
    pcap_dump(reinterpret_cast<u_char*>(m_Dump.get()), &header, static_cast<const u_char*>(bytes));
    CheckWritten(true);
}

void CaptureWriter::Close() {
    CheckWritten(pcap_dump_flush(m_Dump.get()) == 0);
    m_Dump.reset();
    m_File.Commit();
}

void CaptureWriter::CheckWritten(bool written) const {
    if (!written || std::ferror(pcap_dump_file(m_Dump.get())) != 0) {
        throw Failure(m_File.Name() + ": " + std::strerror(errno) +
                      " while writing; make room or choose another file");
    }
}

}  // namespace tools
