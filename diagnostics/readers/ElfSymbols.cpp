#include "diagnostics/readers/ElfSymbols.h"

#include <elf.h>

#include <cstring>

namespace travo::diagnostics {

namespace {

#if defined(__x86_64__)
constexpr Elf64_Half Machine = EM_X86_64;
#elif defined(__aarch64__)
constexpr Elf64_Half Machine = EM_AARCH64;
#else
#error "Name this machine as the header of its libraries does."
#endif

// A record at a place of the file; nothing where it does not lie within.
template <typename Record>
std::optional<Record> At(const QByteArray& file, quint64 place) {
    const auto size = static_cast<quint64>(file.size());
    if (place > size || size - place < sizeof(Record)) {
        return std::nullopt;
    }
    Record record;
    std::memcpy(&record, file.constData() + place, sizeof record);
    return record;
}

bool IsLibraryOfThisMachine(const Elf64_Ehdr& header) {
    return std::memcmp(header.e_ident, ELFMAG, SELFMAG) == 0 && header.e_ident[EI_CLASS] == ELFCLASS64 &&
           header.e_ident[EI_DATA] == ELFDATA2LSB && header.e_type == ET_DYN && header.e_machine == Machine;
}

// The table of sections ends the file as a rule: one that was cut short lacks it.
bool HoldsItsSections(const QByteArray& file, const Elf64_Ehdr& header) {
    const auto size = static_cast<quint64>(file.size());
    return header.e_shoff <= size && (size - header.e_shoff) / sizeof(Elf64_Shdr) >= header.e_shnum;
}

std::optional<Elf64_Shdr> Section(const QByteArray& file, const Elf64_Ehdr& header, quint64 index) {
    return index < header.e_shnum ? At<Elf64_Shdr>(file, header.e_shoff + index * sizeof(Elf64_Shdr))
                                  : std::nullopt;
}

QByteArray NameAt(const QByteArray& file, const Elf64_Shdr& names, quint64 place) {
    const auto size = static_cast<quint64>(file.size());
    if (place >= names.sh_size || names.sh_offset >= size || place >= size - names.sh_offset) {
        return {};
    }
    const auto from = static_cast<qsizetype>(names.sh_offset + place);
    const qsizetype end = file.indexOf('\0', from);
    return end < 0 ? QByteArray() : file.mid(from, end - from);
}

std::optional<std::set<QByteArray>> SymbolsIn(const QByteArray& file, const Elf64_Shdr& table,
                                              const Elf64_Shdr& names) {
    std::set<QByteArray> symbols;
    for (quint64 index = 0; index < table.sh_size / sizeof(Elf64_Sym); ++index) {
        if (table.sh_offset > static_cast<quint64>(file.size())) {
            return std::nullopt;
        }
        const auto symbol = At<Elf64_Sym>(file, table.sh_offset + index * sizeof(Elf64_Sym));
        if (!symbol) {
            return std::nullopt;
        }
        const unsigned binding = ELF64_ST_BIND(symbol->st_info);
        if (symbol->st_shndx != SHN_UNDEF && (binding == STB_GLOBAL || binding == STB_WEAK)) {
            symbols.insert(NameAt(file, names, symbol->st_name));
        }
    }
    return symbols;
}

}  // namespace

std::optional<std::set<QByteArray>> OfferedSymbols(const QByteArray& file) {
    const auto header = At<Elf64_Ehdr>(file, 0);
    if (!header || !IsLibraryOfThisMachine(*header) || !HoldsItsSections(file, *header)) {
        return std::nullopt;
    }
    for (quint64 index = 0; index < header->e_shnum; ++index) {
        const auto table = Section(file, *header, index);
        if (!table || table->sh_type != SHT_DYNSYM) {
            continue;
        }
        const auto names = Section(file, *header, table->sh_link);
        return names ? SymbolsIn(file, *table, *names) : std::nullopt;
    }
    return std::nullopt;
}

}  // namespace travo::diagnostics
