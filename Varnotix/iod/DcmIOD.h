/// The information object: what is read from a stream, edited and written.
#pragma once

#include "Varnotix/asl/ScriptNote.h"
#include "Varnotix/codec/ReadResult.h"
#include "Varnotix/codec/StreamRules.h"
#include "Varnotix/modules/DcmModuleList.h"

#include <memory>
#include <vector>

class CDcmIODPrivate;
class CDcmParser;

/// How UpdateIod copies module elements into the store.
enum EEmptyElements : int
{
    EMPTY_ELEMENTS_INCLUDED = 0, ///< All elements.
    EMPTY_ELEMENTS_EXCLUDED = 1  ///< Only those that are not empty.
};

/// An information object: one flat store that holds every element, and a list of registered modules.
///
/// The store is what is read and written. Modules are typed views with values of their own; UpdateIod copies between
/// the two. A read or write of this class does not touch its modules; derived classes update them. Modules are
/// registered by pointer and not owned: a module must stay valid as long as it is registered.
///
/// Nothing here reports failure. After a read, GetCount shows whether anything was readable, and ReadTrials
/// lists the decoder's failed attempts. Exceptions of files, archives and memory pass to the caller.
class VARNOTIX_EXPORT CDcmIOD : public CObject
{
    DECLARE_DYNCREATE(CDcmIOD)

public:
    CDcmIOD();
    /// Copies the store, the stream rules, both syntaxes, the mode, both flags and the preamble; not the module list,
    /// the magic and the path name.
    CDcmIOD(const CDcmIOD& other);
    ~CDcmIOD() override;

    /// As the copy constructor; then this object's registered modules take their values from the store. The modules of
    /// a typed object are emptied first, also when it is assigned as its base class; the values of modules that a host
    /// registered with a generic object stay where the store has none for them.
    CDcmIOD& operator=(const CDcmIOD& other);

    /// Compares the stores, in whatever order their elements are.
    bool operator==(const CDcmIOD& other) const;
    bool operator!=(const CDcmIOD& other) const { return !(*this == other); }

    /// True when each element of the other's store has an equal element of its tag here.
    bool IsSubSet(const CDcmIOD& other) const;

    /// @name Store and modules
    /// In each, N means the elements of the given module that are not empty, and the registered module of the
    /// given module's class, if there is one, follows.
    /// @{

    /// All elements of the module replace those of their tags in the store.
    CDcmIOD& operator+=(CDcmModule& module);
    /// Removes every element of the module's tags from the store; the registered module is emptied.
    CDcmIOD& operator-=(CDcmModule& module);
    /// Removes every element of the tags of the other's store from this store.
    CDcmIOD& operator-=(const CDcmIOD& other);
    /// Elements of the store take the values of N; nothing is added.
    CDcmIOD& operator&=(CDcmModule& module);
    /// N replaces the module's tags in the store: a tag whose module element is empty goes.
    CDcmIOD& operator<(CDcmModule& module);
    /// N replaces its own tags in the store: a tag whose module element is empty stays.
    CDcmIOD& operator<<(CDcmModule& module);
    /// The module takes the store's values.
    CDcmIOD& operator>>(CDcmModule& module);
    /// @}

    /// @param intoStore true: the registered modules' elements go into the store, in the way that EmptyElements says;
    ///        false: the registered modules take the store's values.
    void UpdateIod(bool intoStore);

    /// How UpdateIod treats empty elements; any value but the two of EEmptyElements copies nothing.
    int EmptyElements() const { return m_emptyElements; }
    void EmptyElements(int mode) { m_emptyElements = mode; }

    /// Whether a write makes group length elements for every group (PS3.5 section 7.2). Not at first. Group 0002
    /// always gets one.
    bool GroupLengths() const { return m_groupLengths; }
    void GroupLengths(bool all) { m_groupLengths = all; }

    /// Whether a write begins with preamble and "DICM" (PS3.10 section 7.1). At first, it does.
    bool FileFormat() const { return m_fileFormat; }
    void FileFormat(bool withPreamble) { m_fileFormat = withPreamble; }

    /// Which rules streams are read and written by; the classic ones at first. Choose before the read: an object that
    /// was read by the classic rules can be written by the standard ones, but what its read lost stays lost.
    EStreamRules StreamRules() const { return m_streamRules; }
    void StreamRules(EStreamRules rules) { m_streamRules = rules; }

    /// The tag before which reads by the standard stream rules end; 0, as at first: they read all. An element of the
    /// object itself that has this tag or a higher one, and all after it, are left in the stream, and of a file no more
    /// is read than that takes: for hosts that look at the first attributes of many files. Do not write such an object
    /// in place of the original. Copies do not have it.
    DWORD StopTag() const { return m_stopTag; }
    void StopBefore(DWORD tag) { m_stopTag = tag; }

    /// Number of top-level elements in the store.
    int GetCount() const;
    /// Number of elements at every depth.
    int GetCountAll() const;
    void Sort();
    /// Empties the store; the modules keep their values.
    void RemoveAll();
    /// Empties every registered module; the store stays.
    void EmptyIodModules();

    /// The store itself.
    CDcmElementSet& ElementStore() { return *m_store; }
    const CDcmElementSet& ElementStore() const { return *m_store; }

    /// Path of the file last read or written through Serialize; empty for memory.
    const CString& PathName() const { return m_pathName; }

    /// The transfer syntax in use (see ESyntax): the one that the last read found. Setting one replaces it, and so does
    /// a write, by the one that was set, even where the store's Transfer Syntax UID had precedence.
    int IodSyntax() const { return m_syntax; }
    /// Sets the syntax in which to write to that of a UID; an unknown UID changes nothing. A Transfer Syntax UID in
    /// the store that is known has precedence.
    void IodSyntax(const CString& uid);

    /// Loading: reads a stored object (PS3.10 file, or data set with or without "DICM") into the store, the syntax
    /// being found by attempts; an unreadable stream leaves the store empty. Storing: writes the store in the syntax of
    /// its Transfer Syntax UID (0002,0010), or else in the one that was set. Writing changes the store: group length
    /// elements are removed and made again, empty texts go, elements are sorted.
    void Serialize(CArchive& archive) override;

    /// Reads a stored object from bytes, in place. Calls Serialize.
    void Import(const CByteArray& bytes);
    /// Writes the stored object into the array. Calls Serialize.
    void ExportFileFormat(CByteArray& bytes);
    /// Writes only the elements, in the syntax of the UID, without preamble and "DICM". An unknown UID writes nothing.
    void Export(CByteArray& bytes, const CString& uid);

    /// Anonymises the store: writes the text into every one of 32 identifying elements that the store holds, or, for an
    /// empty text, removes those elements. Elements inside sequence items are not touched, nor are the registered
    /// modules, until UpdateIod(false) is called.
    void Anonymize55(const CString& text);

    /// The registered module of a class, or null: iod.FindModule(RUNTIME_CLASS(CDcmPatientModule)).
    CDcmModule* FindModule(const CRuntimeClass* moduleClass) const { return FindIodModule(moduleClass); }

    /// Registered modules in the order of their registration.
    int ModuleCount() const { return m_modules.GetSize(); }
    /// @param index from 0 to ModuleCount() - 1; it is not checked.
    CDcmModule& ModuleAt(int index) const { return m_modules[index]; }

    /// Replaces the lines by the object's text document. By the standard stream rules it marks the items of
    /// sequences and has the standard form of lines (see AslLines).
    void Export(CStringArray& lines) const;
    /// Writes the text document to a file, with an empty line at its end. A file that cannot be written is not
    /// reported.
    void Export(const CString& path) const;

    /// Reads a text document: its elements become the store's, and the registered modules take their values. By the
    /// standard stream rules sequences have the items that the document marks. Commands other than those of sequences
    /// are not used. A document without elements, or one that cannot be opened, changes
    /// nothing.
    void ImportFromASL(const CString& path);

    /// True when the last read, by the standard stream rules, ended before the end of the stream: it is cut off, or
    /// cannot be read further. The store then holds the whole elements before that place; do not write it in place of
    /// the original. ReadTrials says why and where.
    bool ReadStopped() const;
    /// The failed attempts of the last read, in order; empty after a read that succeeded at once.
    const std::vector<SReadTrial>& ReadTrials() const;
    /// What the last read could not keep as the stream held it, in stream order.
    const std::vector<SReadNote>& ReadNotes() const;
    /// What the last script that was read here holds and the reader could not follow, in the order of its lines.
    const std::vector<SScriptNote>& ScriptNotes() const;

protected:
    friend class CDcmModule; // A module attaches itself to its owner.

    /// Appends the module to the list, in place of the first registered module whose class is the module's class or
    /// derives from it.
    void AddIodModule(CDcmModule& module);
    /// The first registered module of the class or of one derived from it; null for none and for a null class.
    CDcmModule* FindIodModule(const CRuntimeClass* moduleClass) const;
    /// The registered module that is this very object, or null.
    CDcmModule* FindIodModule(const CDcmModule& module) const;
    /// Removes the first registered module of the class or of one derived from it.
    void RemoveIodModule(const CRuntimeClass* moduleClass);
    /// Removes this very object from the list.
    void RemoveIodModule(const CDcmModule& module);
    /// Empties the list.
    void RemoveIodModules();
    /// The module's elements replace those of their tags in the store.
    void AddSetIncludeEmpty(const CDcmModule& module);
    /// The module's elements that are not empty replace those of their tags in the store.
    void AddSetExcludeEmpty(const CDcmModule& module);
    /// The registered module of the given module's class takes the values of the set.
    void UpdateIodModule(const CDcmModule& module, const CDcmElementSet& set);
    /// The module takes the store's values.
    void UpdateIodModule(CDcmModule& module);
    /// Every registered module takes the store's values.
    void UpdateIodModuleSet();
    /// Copies what operator= copies, and updates the modules without emptying them first: for an object that has
    /// assigned its modules already.
    void TakeStore(const CDcmIOD& other);
    CDcmIODPrivate& IodPrivate() { return *m_private; }
    const CDcmIODPrivate& IodPrivate() const { return *m_private; }

private:
    void CopyFrom(const CDcmIOD& other);
    void WriteStart(CArchive& archive) const;
    void SetOutputSyntax(CDcmParser& parser) const;

    EStreamRules m_streamRules = STREAM_RULES_CLASSIC;
    DWORD m_stopTag = 0;
    int m_emptyElements = EMPTY_ELEMENTS_EXCLUDED;
    bool m_groupLengths = false;
    bool m_fileFormat = true;
    CByteArray m_preamble;
    CDcmModuleList m_modules;
    CByteArray m_magic;
    int m_syntax = SYNTAX_IMPLICIT_LITTLE;
    int m_requestedSyntax = SYNTAX_IMPLICIT_LITTLE;
    CString m_pathName;
    std::unique_ptr<CDcmElementSet> m_store;
    std::unique_ptr<CDcmIODPrivate> m_private;
};
