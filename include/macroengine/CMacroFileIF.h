#pragma once

#include <cstdint>
#include <string>

#include "macroengine/Export.h"
#include "macroengine/WindowHandle.h"

class CMacroCategoryBase;

/// One macro file: loaded, compiled, run any number of times, and asked for what went wrong.
///
/// @code
/// CMacroFileIF* file = CreateMacroFile("", false);
/// if (!file->Load("bringup.mac") || !file->Run()) {
///     for (std::uint32_t i = 0; i < file->GetErrorCount(); ++i) std::puts(file->GetErrorMessage(i));
/// }
/// DeleteMacroFile(file);
/// @endcode
///
/// **Errors.** An operation that fails returns false and leaves the reason as finished lines of text. A line
/// that belongs to a place in a file reads `file(line): error : text`, any other `error : text`. Lines
/// gather, oldest first, until ClearErrors. Nothing is thrown but the standard allocation failure.
///
/// **Threads.** All operations work on the caller's thread and belong to one thread at a time, with one
/// exception: Abort may be called from any thread while Run is busy. Two objects share nothing and may be
/// used on two threads.
///
/// **Text** is narrow, in the system's multibyte code page, and ends with NUL. A null pointer passed as a
/// text is taken as the empty text.
class MACROENGINE_API CMacroFileIF {
public:
    CMacroFileIF();
    CMacroFileIF(const CMacroFileIF& other);             ///< There is no data to copy.
    CMacroFileIF& operator=(const CMacroFileIF& other);  ///< There is no data to copy.
    virtual ~CMacroFileIF();

    /// Reads a macro file and the files that it includes, and adds their statements to the program.
    ///
    /// Every Load adds to the same program: nothing is cleared, neither statements nor error lines. A Load
    /// that fails keeps the statements before the error. Included files are searched in the folder of the
    /// including file.
    ///
    /// @param path  the file; `\` and `/` both separate folders. A relative one begins in the current folder.
    /// @return true when the file and all it includes were compiled; false with the reason in the error
    ///         lines. While the file is running (a command calls Load on its own file) it is refused.
    virtual bool Load(const char* path) = 0;

    /// Runs the program from its first statement, and returns when it has ended.
    ///
    /// Variables keep the values of the run before.
    ///
    /// @return true when the program ran to its end without an error; false when nothing is loaded, when a
    ///         statement failed, or after an abort. A call while the file is already running is refused.
    virtual bool Run() = 0;

    /// @return the number of error lines.
    virtual std::uint32_t GetErrorCount() const = 0;

    /// @param index  0 to GetErrorCount() - 1, oldest first.
    /// @return the line, without a line end; the empty text for any other index, never null. It stays valid
    ///         until the next operation on this object that can add or clear lines.
    virtual const char* GetErrorMessage(std::uint32_t index) const = 0;

    /// Forgets all error lines. The engine itself never does.
    virtual void ClearErrors() = 0;

    /// Has no effect; it keeps its place in the order of operations.
    virtual void Reserved() = 0;

    /// Adds a command to the language of this file, under the names that the command object carries.
    ///
    /// Commands are registered before Load, which needs to know their names.
    ///
    /// @param companion  an object that the file keeps beside the command for the host; may be null. Not
    ///                   owned.
    /// @param command    the command. Not owned: it outlives this object.
    /// @param bareCall   true when `category(...)`, without a command name, calls the first command of the
    ///                   category. All commands of one category agree in this.
    /// @return false for a null command, for a first command of a category without a name, and when the
    ///         category exists with the other `bareCall`. Registering the same category, command and
    ///         namespace again is accepted and changes nothing: the first command stays.
    virtual bool RegisterCategory(CMacroCategoryBase* companion, CMacroCategoryBase* command,
                                  bool bareCall) = 0;

    /// Walks the process-wide table of plug-ins (PluginInfo.h) as CreateMacroFile does.
    ///
    /// @return the result of the last read: true only when all 100 entries are in use.
    virtual bool RequestPluginRegistration() = 0;

    /// @return the command that `category.command` means under the namespace in force, or null. Owned by
    ///         whoever registered it.
    virtual CMacroCategoryBase* FindCommand(const char* category, const char* command) = 0;

    /// Asks a running program to stop after the statement that it is at. May be called from any thread.
    ///
    /// An aborted program is not run again by itself: Run is refused until a Load has added a statement.
    ///
    /// @return true when a run was under way: that Run returns false and its last line says "Macro aborted.",
    ///         unless an error of a statement ends it first. False when nothing is running; then nothing
    ///         happens.
    virtual bool Abort() = 0;

    /// Sets the folder that commands complete relative paths with (CMacroPropertyIF::GetWorkFolder).
    ///
    /// A relative folder is taken from the folder of the loaded file when Run starts; the empty text, which
    /// is also the initial value, stands for the folder of the loaded file itself.
    ///
    /// @return true.
    virtual bool SetWorkDirectory(const char* directory) = 0;

    /// Stores where a host wants to be told of the lines that run. The engine keeps the values and sends
    /// nothing.
    ///
    /// @return true.
    virtual bool SetLineNotification(std::uint32_t code, HWND target, std::uint32_t enableCount) = 0;

    /// Chooses what a failing statement does to the run.
    ///
    /// @param stopOnError  true, the initial value: the run ends at the first error. False: it goes on, and
    ///                     Run returns false at the end.
    /// @param target       with stopOnError false and a target that is not null, the lines of errors passed
    ///                     over are dropped instead of gathered.
    /// @param code         stored, not used.
    /// @return true.
    virtual bool SetErrorHandling(bool stopOnError, HWND target, std::uint32_t code) = 0;
};

/// Makes a macro file object with the built-in commands in place, and walks the table of plug-ins once.
///
/// @param name  the namespace in force until a macro changes it with `using.namespace`; empty for the
///              built-ins.
/// @param flag  without effect.
/// @return the object, to be given back with DeleteMacroFile; null when there is no memory for it.
MACROENGINE_API CMacroFileIF* CreateMacroFile(const std::string& name, bool flag);

/// As CreateMacroFile, without the walk over the table of plug-ins.
MACROENGINE_API CMacroFileIF* CreateMacroFileNoRegisterRequest(const std::string& name, bool flag);

/// Destroys the object and sets the pointer to null. A null pointer is left as it is.
///
/// While the file is running (a command deletes its own file) the run is asked to end as by Abort, and the
/// object goes when Run returns: nobody may use another copy of the pointer then, not even for the lines.
MACROENGINE_API void DeleteMacroFile(CMacroFileIF*& file);
