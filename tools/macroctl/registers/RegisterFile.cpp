#include "registers/RegisterFile.h"

#include <algorithm>
#include <cstdint>
#include <new>
#include <utility>

#include <macroengine/CRegDefFileIF.h>

#include "io/ProgressLine.h"
#include "registers/FormatDetection.h"

namespace macroctl {

namespace {

/// Address 0 is also what stands for a missing address. An address that is big-endian is none that is
/// missing.
bool IsSurelyOn(const CRegFieldsIF& fields, std::int32_t mode) {
    return fields.GetAddress(mode) != 0 || fields.GetBigEndian(mode);
}

RegisterPlace PlaceOn(const CRegFieldsIF& fields, std::int32_t mode, bool given) {
    RegisterPlace place;
    place.given = given;
    if (given) {
        place.address = fields.GetAddress(mode);
        place.bigEndian = fields.GetBigEndian(mode);
    }
    return place;
}

constexpr std::int32_t kThreeWireMode = 0;
constexpr std::int32_t kTwoWireMode = 1;

}  // namespace

RegisterFile::RegisterFile(const std::string& path, const ReadingOptions& options) : path_(path) {
    const ProgressLine progress("reading " + path);
    lineBased_ = options.lineBased || LooksLineBased(path);
    reader_ = lineBased_ ? CreatePSCRegDefFile() : CreateRegDefFile();
    if (reader_ == nullptr) throw std::bad_alloc();
    good_ = reader_->Load(path.c_str()) && reader_->GetErrorCount() == 0;
    if (options.merge) MergeSplitRegisters(reader_);
    Gather();
}

RegisterFile::~RegisterFile() {
    DeleteRegDefFile(reader_);
}

RegisterFile::RegisterFile(RegisterFile&& other) noexcept
    : path_(std::move(other.path_)),
      lineBased_(other.lineBased_),
      good_(other.good_),
      reader_(std::exchange(other.reader_, nullptr)),
      registers_(std::move(other.registers_)) {}

void RegisterFile::Gather() {
    const std::uint32_t count = reader_->GetRegisterCount();
    bool usesTwoWire = false;
    bool usesThreeWire = false;
    for (std::uint32_t i = 0; i < count && !(usesTwoWire && usesThreeWire); ++i) {
        const CRegFieldsIF& fields = *reader_->GetRegister(i);
        usesTwoWire = usesTwoWire || IsSurelyOn(fields, kTwoWireMode);
        usesThreeWire = usesThreeWire || IsSurelyOn(fields, kThreeWireMode);
    }
    // A file of registers at the little-endian address 0 alone has to be on some bus.
    if (!usesThreeWire) usesTwoWire = true;

    registers_.reserve(count);
    for (std::uint32_t i = 0; i < count; ++i) {
        const CRegFieldsIF& fields = *reader_->GetRegister(i);
        Register reg;
        reg.name = fields.GetName();
        reg.description = fields.GetDescription();
        reg.function = fields.GetFunction();
        reg.twoWire = PlaceOn(fields, kTwoWireMode, usesTwoWire);
        reg.threeWire = PlaceOn(fields, kThreeWireMode, usesThreeWire);
        reg.lsb = fields.GetLsb();
        reg.length = fields.GetLength();
        reg.access = static_cast<Access>(fields.GetRw());
        reg.initialValue = fields.GetRecordValue2();
        registers_.push_back(reg);
    }
}

std::vector<std::string> RegisterFile::Errors() const {
    std::vector<std::string> lines;
    for (std::uint32_t i = 0; i < reader_->GetErrorCount(); ++i)
        lines.emplace_back(reader_->GetErrorMessage(i));
    // No failure goes without a word.
    if (!good_ && lines.empty()) lines.push_back(path_ + ": error : the file can't be read.");
    return lines;
}

const char* RegisterFile::Listing() {
    return reader_->GetListing();
}

bool RegisterFile::Uses(BusKind bus) const {
    return std::any_of(registers_.begin(), registers_.end(),
                       [bus](const Register& reg) { return reg.On(bus).given; });
}

}  // namespace macroctl
