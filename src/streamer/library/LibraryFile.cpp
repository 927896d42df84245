#include "library/LibraryFile.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <link.h>
#include <QFileInfo>
#include <QtEndian>

/// The header of the program itself, made by the linker.
extern "C" __attribute__((visibility("hidden"))) const ElfW(Ehdr) __ehdr_start;

namespace {

constexpr quint64 nowhere = std::numeric_limits<quint64>::max();
constexpr int longestText = 64;
constexpr int longestSymbol = 256;

QString nameOf(quint16 machine)
{
    switch (machine) {
    case EM_X86_64:
        return QStringLiteral("x86-64");
    case EM_AARCH64:
        return QStringLiteral("AArch64");
    case EM_386:
        return QStringLiteral("x86");
    case EM_ARM:
        return QStringLiteral("ARM");
    case EM_RISCV:
        return QStringLiteral("RISC-V");
    default:
        return QStringLiteral("a machine of type %1").arg(machine);
    }
}

} // namespace

LibraryFile::LibraryFile(const QString& file) : m_file(file), m_reason(findReason()) {}

QString LibraryFile::findReason()
{
    if (!QFileInfo(m_file).isFile())
        return QStringLiteral("there is no such file");
    if (!m_file.open(QIODevice::ReadOnly))
        return QStringLiteral("it cannot be read: %1").arg(m_file.errorString());
    const QString foreign = QStringLiteral("it is no shared library");
    m_bytes = m_file.map(0, m_file.size());
    const uchar* start = bytes(0, sizeof(ElfW(Ehdr)));
    if (!start || std::memcmp(start, ELFMAG, SELFMAG) != 0)
        return foreign;
    ElfW(Ehdr) header;
    std::memcpy(&header, start, sizeof(header));
    // The words of 32 and 64 bits have the machine at the same place.
    const quint16 machine = header.e_ident[EI_DATA] == ELFDATA2MSB
                                ? qFromBigEndian(header.e_machine)
                                : qFromLittleEndian(header.e_machine);
    if (machine != __ehdr_start.e_machine) {
        return QStringLiteral("it is made for %1, this machine is %2")
            .arg(nameOf(machine), nameOf(__ehdr_start.e_machine));
    }
    if (std::memcmp(header.e_ident + EI_CLASS, __ehdr_start.e_ident + EI_CLASS, 2) != 0)
        return QStringLiteral("it is made for another word size or byte order");
    if (header.e_type != ET_DYN)
        return foreign;
    // The table of sections is the last thing in a library.
    const bool isWhole = bytes(header.e_shoff, header.e_shnum * sizeof(ElfW(Shdr)));
    return isWhole ? QString() : QStringLiteral("it is not all there");
}

const uchar* LibraryFile::bytes(quint64 offset, quint64 size) const
{
    const auto all = static_cast<quint64>(m_file.size());
    return m_bytes && offset <= all && size <= all - offset ? m_bytes + offset : nullptr;
}

QByteArray LibraryFile::textAt(quint64 offset, int limit) const
{
    const uchar* start = bytes(offset, 1);
    if (!start)
        return {};
    const auto rest = std::min<quint64>(m_file.size() - offset, limit);
    if (!std::memchr(start, 0, rest))
        return {};
    return QByteArray(reinterpret_cast<const char*>(start));
}

template <class Entry, class Step>
bool LibraryFile::each(quint64 offset, quint64 count, Step step) const
{
    for (quint64 i = 0; i < count; i++) {
        const uchar* start = bytes(offset, sizeof(Entry));
        if (!start)
            return false;
        Entry entry;
        std::memcpy(&entry, start, sizeof(entry));
        if (!step(entry))
            return false;
        offset += sizeof(Entry);
    }
    return true;
}

quint64 LibraryFile::offsetOf(quint64 address) const
{
    const auto* header = reinterpret_cast<const ElfW(Ehdr)*>(m_bytes);
    quint64 offset = nowhere;
    each<ElfW(Phdr)>(header->e_phoff, header->e_phnum, [&](const auto& part) {
        const bool isHere = part.p_type == PT_LOAD && address >= part.p_vaddr &&
                            address - part.p_vaddr < part.p_filesz;
        if (isHere)
            offset = part.p_offset + (address - part.p_vaddr);
        return !isHere;
    });
    return offset;
}

QByteArray LibraryFile::text(const char* symbol) const
{
    if (!m_reason.isEmpty())
        return {};
    const auto* header = reinterpret_cast<const ElfW(Ehdr)*>(m_bytes);
    ElfW(Shdr) symbols = {};
    each<ElfW(Shdr)>(header->e_shoff, header->e_shnum, [&](const auto& section) {
        if (section.sh_type == SHT_DYNSYM)
            symbols = section;
        return section.sh_type != SHT_DYNSYM;
    });
    ElfW(Shdr) names = {};
    each<ElfW(Shdr)>(header->e_shoff + quint64(symbols.sh_link) * sizeof(ElfW(Shdr)), 1,
                     [&](const auto& section) {
                         names = section;
                         return true;
                     });
    QByteArray found;
    const quint64 count = symbols.sh_size / sizeof(ElfW(Sym));
    each<ElfW(Sym)>(symbols.sh_offset, count, [&](const auto& entry) {
        const bool isIt = entry.st_shndx != SHN_UNDEF &&
                          textAt(names.sh_offset + entry.st_name, longestSymbol) == symbol;
        if (isIt)
            found = textAt(offsetOf(entry.st_value), longestText);
        return !isIt;
    });
    return found;
}
