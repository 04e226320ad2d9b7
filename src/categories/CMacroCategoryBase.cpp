#include "macroengine/CMacroCategoryBase.h"

#include "categories/CMacroCategoryCmdList.h"

namespace {

const char* OrEmpty(const char* text) {
    return text == nullptr ? "" : text;
}

}  // namespace

CMacroCategoryBase::CMacroCategoryBase(const char* category, const char* property, bool canAssignSrc,
                                       bool canAssignDest, const char* nameSpace)
    : category_(OrEmpty(category)),
      property_(OrEmpty(property)),
      canAssignSrc_(canAssignSrc),
      canAssignDest_(canAssignDest),
      nameSpace_(OrEmpty(nameSpace)),
      list_(nullptr) {}

CMacroCategoryBase::CMacroCategoryBase(const CMacroCategoryBase& other) = default;
CMacroCategoryBase& CMacroCategoryBase::operator=(const CMacroCategoryBase& other) = default;
CMacroCategoryBase::~CMacroCategoryBase() = default;

const char* CMacroCategoryBase::GetCategoryName() const {
    return category_;
}
const char* CMacroCategoryBase::GetPropertyName() const {
    return property_;
}
const char* CMacroCategoryBase::GetNameSpace() const {
    return nameSpace_;
}
bool CMacroCategoryBase::CanAssignSrc() const {
    return canAssignSrc_;
}
bool CMacroCategoryBase::CanAssignDest() const {
    return canAssignDest_;
}

bool CMacroCategoryBase::SetMacroCategoryList(const CMacroCategoryCmdList* list) {
    list_ = list;
    return true;
}

CMacroCategoryBase* CMacroCategoryBase::GetMacroCategoryObject(const char* category,
                                                               const char* property) const {
    if (!CMacroCategoryCmdList::IsAlive(list_)) return nullptr;
    return list_->FindCommand(OrEmpty(category), OrEmpty(property));
}
