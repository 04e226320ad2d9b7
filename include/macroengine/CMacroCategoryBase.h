#pragma once

#include "macroengine/Export.h"

class CMacroCategoryCmdList;
class CMacroPropertyIF;

/// A command of the macro language: derive from it, override Run, and register an object of it with
/// CMacroFileIF::RegisterCategory.
///
/// @code
/// class Twice : public CMacroCategoryBase {           // y = math.twice(21)
/// public:
///     Twice() : CMacroCategoryBase("math", "twice", true, false, "") {}
///     bool Run(CMacroPropertyIF* property) override {
///         int value = 0;
///         if (property->CheckArgumentCount(1, 1) < 0) return false;  // the reason is already reported
///         if (!property->GetArgInteger(0, 0, 0, value)) return false;
///         return property->SetResultInteger(value * 2);
///     }
/// };
/// @endcode
///
/// Names compare byte by byte, with case. One object may serve several macro files, unless they run on
/// different threads: then each needs an object of its own.
class MACROENGINE_API CMacroCategoryBase {
public:
    /// The texts are not copied: they stay valid as long as the object. A null pointer is taken as the empty
    /// text.
    ///
    /// @param category       the name before the point.
    /// @param property       the command's name behind the point.
    /// @param canAssignSrc   true when a call may be a value, `x = category.command(...)`.
    /// @param canAssignDest  true when a call may be assigned to, `category.command(...) = value`.
    /// @param nameSpace      tells providers of the same command apart; empty when there is just one.
    CMacroCategoryBase(const char* category, const char* property, bool canAssignSrc, bool canAssignDest,
                       const char* nameSpace);
    /// The copy points to the same texts and finds the commands of the same file, without being one.
    CMacroCategoryBase(const CMacroCategoryBase& other);
    /// As the copy constructor.
    CMacroCategoryBase& operator=(const CMacroCategoryBase& other);
    virtual ~CMacroCategoryBase();

    /// Carries out one call, on the thread that runs the macro.
    ///
    /// @param property  the arguments, the result and the messages of this call; not valid after Run returns.
    /// @return true on success; false after at least one message has been put into `property`, by one of its
    ///         checks or by CMacroPropertyIF::AddErrorMessage. The statement then fails.
    ///
    /// An exception ends here: the statement fails with "category.command() threw an exception. (what)", or
    /// with "Memory allocation error" when it is the standard allocation failure.
    ///
    /// A command may call any function of this library, also on the file that is running it. There Load and
    /// Run are refused; Abort and DeleteMacroFile end the run when the command has returned; SetWorkDirectory
    /// holds from the next run on, RegisterCategory and SetErrorHandling at once.
    virtual bool Run(CMacroPropertyIF* property) = 0;

    const char* GetCategoryName() const;  ///< The category as given, never null.
    const char* GetPropertyName() const;  ///< The command's name as given, never null.
    const char* GetNameSpace() const;     ///< The namespace as given, never null.
    bool CanAssignSrc() const;            ///< Whether a call may be a value.
    bool CanAssignDest() const;           ///< Whether a call may be assigned to.

    /// Called by the engine when the command is registered.
    /// @return true.
    bool SetMacroCategoryList(const CMacroCategoryCmdList* list);

    /// Finds another command of the same macro file, as a script would under the namespace in force. For an
    /// object that is registered with several files it is the file that it was registered with last.
    ///
    /// @return the command, or null when there is none, when this object is not registered, or when that file
    ///         has been deleted. Not owned by the caller.
    CMacroCategoryBase* GetMacroCategoryObject(const char* category, const char* property) const;

private:
    const char* category_;
    const char* property_;
    bool canAssignSrc_;
    bool canAssignDest_;
    const char* nameSpace_;
    const CMacroCategoryCmdList* list_;
};
