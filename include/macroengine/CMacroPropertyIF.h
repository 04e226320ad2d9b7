#pragma once

#include "macroengine/Export.h"

/// Everything a command sees of the call it carries out: its arguments, the value assigned to it, its result,
/// its messages and the folders that paths belong to.
///
/// Each check reports its own failure, so a command only tests the answer and returns false:
///
/// @code
/// bool Run(CMacroPropertyIF* property) override {                  // board.write(address, value)
///     int address = 0, value = 0;
///     if (property->CheckArgumentCount(2, 2) < 0) return false;
///     if (!property->GetArgInteger(0, 0, 0xFFFF, address)) return false;
///     if (!property->GetArgInteger(1, 0, 0xFF, value)) return false;
///     if (!bus_.Write(address, value)) {
///         property->AddErrorMessage("board.write() no answer from the device");
///         return false;
///     }
///     return true;
/// }
/// @endcode
///
/// In the messages below `NAME` is the category, a point and the command, and `N` the index of the argument.
/// Indexes are 0-based. Every message goes out with the file and the line of the calling statement.
///
/// The object and every text that it returns live until Run returns. It belongs to the thread that runs the
/// macro. Nothing is thrown but the standard allocation failure.
class MACROENGINE_API CMacroPropertyIF {
public:
    CMacroPropertyIF();
    CMacroPropertyIF(const CMacroPropertyIF& other);             ///< There is no data to copy.
    CMacroPropertyIF& operator=(const CMacroPropertyIF& other);  ///< There is no data to copy.
    virtual ~CMacroPropertyIF();

    /// @return the number of arguments when it lies in [min, max]; otherwise -1 and
    ///         "NAME() argument error. (argument count is invalid)".
    virtual int CheckArgumentCount(unsigned int min, unsigned int max) = 0;

    /// Reads an integer argument.
    ///
    /// The range is compared as **unsigned** 32-bit numbers and only when min < max: (0, 0) accepts any
    /// value, and -1 is 4294967295.
    ///
    /// @return false with "NAME() argument error. (argument[N] type isn't interger)" or
    ///         "NAME() argument error. (argument[N] is out of range.)"; `value` is then untouched.
    virtual bool GetArgInteger(unsigned int index, unsigned int min, unsigned int max, int& value) = 0;

    /// @return the text argument; null with "NAME() argument error. (argument[N] type isn't string)".
    virtual const char* GetArgString(unsigned int index) = 0;

    /// Reads the integer assigned to the call, `NAME(...) = value`; the range as in GetArgInteger.
    ///
    /// @return false with "assigned value is needed at NAME()",
    ///         "NAME() assigned value error. (type isn't interger)" or
    ///         "NAME() assigned value error. (out of range.)".
    virtual bool GetAssignedInteger(unsigned int min, unsigned int max, int& value) = 0;

    /// Reads the floating value assigned to the call; an integer is converted. The range includes both ends
    /// and is checked only when max > min.
    ///
    /// @return false with "assigned value is needed at NAME()",
    ///         "NAME() assigned value error. (type isn't floating)" or
    ///         "NAME() assigned value error. (out of range.)".
    virtual bool GetAssignedFloating(double min, double max, double& value) = 0;

    /// Tells whether the call stands without an assigned value.
    ///
    /// @param silent  true to only ask; false to report "assigned value isn't needed at NAME()" when there is
    ///                one.
    /// @return true when there is none.
    virtual bool CheckNoAssignedValue(bool silent) = 0;

    /// @return the folder of the calling file, up to and with its last separator.
    virtual const char* GetMacroFolder() = 0;

    /// @return the calling file, as it was loaded.
    virtual const char* GetFileName() = 0;

    /// @return the line of the calling statement, counted from 1.
    virtual unsigned int GetLineNumber() = 0;

    /// Makes the result an array of `count` copies of the texts. A count of 0 or less leaves the result as it
    /// is.
    /// @return true.
    virtual bool SetResultStringArray(int count, const char* const* texts) = 0;

    /// Makes the result an array of floating values. A count of 0 or less leaves the result as it is.
    /// @return true.
    virtual bool SetResultFloatingArray(int count, const double* values) = 0;

    /// Makes the result an array of integers. A count of 0 or less leaves the result as it is.
    /// @return true.
    virtual bool SetResultIntegerArray(int count, const int* values) = 0;

    virtual bool SetResultString(
        const char* text) = 0;                         ///< Makes the result a copy of the text. @return true.
    virtual bool SetResultFloating(double value) = 0;  ///< Makes the result floating. @return true.
    virtual bool SetResultInteger(int value) = 0;      ///< Makes the result an integer. @return true.
    virtual bool SetResultBoolean(bool value) = 0;     ///< Makes the result a boolean. @return true.

    /// Adds a message of the command's own, one line with the file and the line of the calling statement.
    /// @return true.
    virtual bool AddErrorMessage(const char* text) = 0;

    /// @return the run's work folder (CMacroFileIF::SetWorkDirectory), not normalized; else the macro folder.
    virtual const char* GetWorkFolder() = 0;

    /// Completes a path with the work folder and normalizes it. A path that begins with a separator or whose
    /// second character is ":" is taken as it is.
    virtual const char* GetFullPathFromWorkFolder(const char* path) = 0;

    /// @return the text with every `\` doubled.
    virtual const char* EscapeBackslash(const char* text) = 0;

    /// As GetFullPathFromWorkFolder, with the macro folder.
    virtual const char* GetFullPathFromMacroFolder(const char* path) = 0;

    /// Undoes EscapeBackslash: each pair of `\` becomes one. Four at the start become two, which begin the
    /// path of a network share.
    virtual const char* NormalizePath(const char* path) = 0;

    /// Reads a floating argument; an integer is converted. The range includes both ends and is checked only
    /// when max > min.
    ///
    /// @return false with "NAME() argument error. (argument[N] type isn't interger)" or
    ///         "NAME() argument error. (argument[N] is out of range.)".
    virtual bool GetArgFloating(unsigned int index, double min, double max, double& value) = 0;

    /// @return the number of elements of an array argument; -1 with
    ///         "NAME() argument error. (argument[N] is not array)" or, for an index beyond the arguments,
    ///         "system error: parameter position is invalid.".
    virtual int GetArgArraySize(unsigned int index) = 0;

    /// Reads an element of an array argument.
    ///
    /// @return false with "NAME() argument error. (argument[N] is not array)",
    ///         "NAME() argument error. (argument[N] is array, but elements is not exist)",
    ///         "NAME() argument error. (argument[N] is array, but elements is not integer)" or
    ///         "system error: parameter position is invalid.".
    virtual bool GetArgArrayInteger(unsigned int index, unsigned int element, int& value) = 0;

    /// As GetArgArrayInteger with "... but elements is not floating)"; an integer element is converted.
    virtual bool GetArgArrayFloating(unsigned int index, unsigned int element, double& value) = 0;

    /// As GetArgArrayInteger with "... but elements is not string)".
    /// @return the text, or null.
    virtual const char* GetArgArrayString(unsigned int index, unsigned int element) = 0;

    /// @return the number of elements of the assigned array; -1 with
    ///         "NAME() assigned value error. (assigned variable is not array)".
    virtual int GetAssignedArraySize() = 0;

    /// Reads an element of the assigned array.
    ///
    /// @return false with "NAME() assigned value error. (assigned value is not array)",
    ///         "NAME() assigned value error. (assigned value is array, but elements is not exist)" or
    ///         "NAME() assigned value error. (assigned value is array, but elements is not integer)".
    virtual bool GetAssignedArrayInteger(unsigned int element, int& value) = 0;

    /// As GetAssignedArrayInteger with "... but elements is not floating)"; an integer element is refused.
    virtual bool GetAssignedArrayFloating(unsigned int element, double& value) = 0;

    /// As GetAssignedArrayInteger with "... but elements is not string)".
    /// @return the text, or null.
    virtual const char* GetAssignedArrayString(unsigned int element) = 0;

    /// @return the kind of an argument: 0 integer (signed, 32 bits), 1 floating (double precision), 2 text, 3
    ///         boolean, 6 array, 8 no such argument.
    virtual int GetArgType(unsigned int index) = 0;
};
