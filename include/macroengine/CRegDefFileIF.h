#pragma once

#include <cstdint>

#include "macroengine/CRegFieldsIF.h"
#include "macroengine/Export.h"

/// The registers of a device, read from a register file.
///
/// @code
/// CRegDefFileIF* file = CreateRegDefFile();
/// if (!file->Load("sensor.rgi")) {
///     for (std::uint32_t i = 0; i < file->GetErrorCount(); ++i) std::puts(file->GetErrorMessage(i));
/// }
/// for (std::uint32_t i = 0; i < file->GetRegisterCount(); ++i) {
///     const CRegFieldsIF* fields = file->GetRegister(i);
///     std::printf("%s at 0x%x\n", fields->GetName(), unsigned{fields->GetAddress2Wire()});
/// }
/// DeleteRegDefFile(file);
/// @endcode
///
/// There are two formats, each with its own factory: the sectioned one (CreateRegDefFile), with an optional
/// `[ENDIAN]` and a `[REGISTER]` section, and the line-based one (CreatePSCRegDefFile), with a register per
/// line.
///
/// **Errors.** A load leaves its findings as finished lines of text, `file(line): error : text` where a line
/// of the file is to blame and `error : text` otherwise. They gather, oldest first, over all loads of the
/// object. Nothing is thrown but the standard allocation failure.
///
/// **Threads.** All operations work on the caller's thread. Load, GetListing and MergeSplitRegisters belong
/// to one thread at a time; between them any number of threads may ask. Two objects share nothing.
///
/// **Text** is narrow, in the system's multibyte code page, and ends with NUL. No text that is returned is
/// null.
class MACROENGINE_API CRegDefFileIF {
public:
    CRegDefFileIF();
    CRegDefFileIF(const CRegDefFileIF& other);             ///< There is no data to copy.
    CRegDefFileIF& operator=(const CRegDefFileIF& other);  ///< There is no data to copy.
    virtual ~CRegDefFileIF();

    /// Reads a file and adds its registers to those that are there.
    ///
    /// Nothing of an earlier load is cleared: registers, preamble, address ranges and error lines add up. In
    /// the sectioned format so do the columns, which is only of use when both files name the same ones.
    /// Whoever wants a file by itself makes an object for it.
    ///
    /// *Sectioned:* a bad record is left out and the load goes on, so that one load tells of all bad records;
    /// a bad section ends the load. *Line-based:* a bad line gives an error line and is read as far as it
    /// goes.
    ///
    /// @param path  the file; `\` and `/` both separate folders. Null is taken as the empty text. A sectioned
    ///              `.iod`, `.dat` or `.rgi` file may be in the encoded form.
    /// @return *sectioned:* true when there was nothing to report; *line-based:* true when the file could be
    ///         read to its end, whatever GetErrorCount says of its lines.
    virtual bool Load(const char* path) = 0;

    /// @return the number of error lines.
    virtual std::uint32_t GetErrorCount() const = 0;

    /// @param index  0 to GetErrorCount() - 1, oldest first.
    /// @return the line, without a line end; the empty text for any other index. It stays valid until
    ///         the next Load.
    virtual const char* GetErrorMessage(std::uint32_t index) const = 0;

    /// @return the number of registers.
    virtual std::uint32_t GetRegisterCount() const = 0;

    /// @param index  0 to GetRegisterCount() - 1, in the order of the file.
    /// @return the register, owned by this object; null for any other index. It stays valid as long as this
    ///         object, also over further loads, unless MergeSplitRegisters is called.
    virtual CRegFieldsIF* GetRegister(std::uint32_t index) = 0;

    /// @return the number of preamble tokens: the words, numbers, quoted texts and signs before the first
    ///         section of a sectioned file. Comments and line ends do not count. Line-based: 0.
    virtual std::uint32_t GetPreambleCount() const = 0;

    /// @param index  0 to GetPreambleCount() - 1.
    /// @return the token, a quoted text with its quotes; the empty text for any other index. It stays
    ///         valid as long as this object.
    virtual const char* GetPreamble(std::int32_t index) const = 0;

    /// Writes all that is loaded as one text for people: the byte order of the addresses 0 to 255, then every
    /// register. Lines end with CR LF.
    ///
    /// @return the text, which stays valid until the next GetListing.
    virtual const char* GetListing() = 0;
};

/// Makes a reader of the sectioned format.
///
/// @return the object, to be given back with DeleteRegDefFile; null when there is no memory for it.
MACROENGINE_API CRegDefFileIF* CreateRegDefFile();

/// Makes a reader of the line-based format.
///
/// @return the object, to be given back with DeleteRegDefFile; null when there is no memory for it.
MACROENGINE_API CRegDefFileIF* CreatePSCRegDefFile();

/// Destroys a reader and all that it gave out. A null pointer is ignored.
MACROENGINE_API void DeleteRegDefFile(CRegDefFileIF* file);

/// Joins registers that the lines of a line-based file give in parts.
///
/// A register is joined to the one before it when both have the same two-wire address and its bits go on
/// where those of the other end. The one that stays keeps its name and texts, has the bits of both, and an
/// initial value made of both. All registers that GetRegister gave before are invalid afterwards.
///
/// @code
/// // GAIN_L h1 10 0 4
/// // GAIN_H h2 10 4 4
/// MergeSplitRegisters(file);   // one register GAIN_L of 8 bits with the initial value 0x21
/// @endcode
///
/// @param file  a reader from CreatePSCRegDefFile.
/// @return true; false for null and any other reader, which is left as it is.
MACROENGINE_API bool MergeSplitRegisters(CRegDefFileIF* file);
