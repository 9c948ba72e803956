// Objects by key, and the system registry, which is one of them.
#pragma once
#include "AcRxObject.h"

#define ACRX_CLASS_DICTIONARY ACRX_T("ClassDictionary")
#define ACRX_SERVICE_DICTIONARY ACRX_T("ServiceDictionary")
#define ACRX_DYNAMIC_LINKER ACRX_T("DynamicLinker")

class AcRxIterator : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcRxIterator);
    virtual bool done() const = 0;
    // False at the end.
    virtual bool next() = 0;
    virtual AcRxObject* object() const = 0;
};

class AcRxDictionaryIterator : public AcRxIterator {
public:
    ACRX_DECLARE_MEMBERS(AcRxDictionaryIterator);
    virtual const ACHAR* key() const = 0;
    virtual Adesk::UInt32 id() const = 0;
};

class AcRxDictionary : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcRxDictionary);

    virtual AcRxObject* at(const ACHAR* key) const = 0;
    virtual AcRxObject* at(Adesk::UInt32 id) const = 0;
    // Answers the object that stood under the key; it is deleted, and null answered, when the dictionary owns its
    // objects.
    virtual AcRxObject* atPut(const ACHAR* key, AcRxObject* object, Adesk::UInt32& id) = 0;
    virtual bool resetKey(const ACHAR* oldKey, const ACHAR* newKey) = 0;
    virtual bool resetKey(Adesk::UInt32 id, const ACHAR* newKey) = 0;
    virtual bool atKeyAndIdPut(const ACHAR* newKey, Adesk::UInt32 id, AcRxObject* object) = 0;
    virtual AcRxObject* remove(const ACHAR* key) = 0;
    virtual AcRxObject* remove(Adesk::UInt32 id) = 0;
    virtual bool has(const ACHAR* key) const = 0;
    virtual bool has(Adesk::UInt32 id) const = 0;
    // 0 when the key is unknown.
    virtual Adesk::UInt32 idAt(const ACHAR* key) const = 0;
    virtual const ACHAR* keyAt(Adesk::UInt32 id) const = 0;
    virtual Adesk::UInt32 numEntries() const = 0;
    // The caller deletes the iterator. Changing the dictionary ends its use.
    virtual AcRxDictionaryIterator* newIterator(AcRx::DictIterType type = AcRx::kDictSorted) = 0;
    virtual Adesk::Boolean deletesObjects() const = 0;
    virtual Adesk::Boolean isCaseSensitive() const = 0;
    virtual Adesk::Boolean isSorted() const = 0;
};

// The root of all that the process knows by name: "DynamicLinker", "ServiceDictionary" and what the host adds.
AcRxDictionary* acrxSysRegistry();

#define acrxServiceDictionary AcRxDictionary::cast(acrxSysRegistry()->at(ACRX_SERVICE_DICTIONARY))
#define acrxClassDictionary AcRxDictionary::cast(acrxSysRegistry()->at(ACRX_CLASS_DICTIONARY))

namespace KxPlat {

// A dictionary that the caller owns.
AcRxDictionary* NewDictionary(bool deletesObjects, bool isCaseSensitive);
// Every known class under its name.
AcRxDictionary& ClassDictionary();

}   // namespace KxPlat
