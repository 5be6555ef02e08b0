#include "session/SiblingClasses.h"

namespace kvx {

namespace {
SiblingLibrary* currentSiblings = nullptr;
}

SiblingLibrary& Siblings()
{
    if (currentSiblings == nullptr) {
        basic::Raise(basic::kErrCannotCreateObject, "Korvex_Loc is not registered");
    }
    return *currentSiblings;
}

void SetSiblings(SiblingLibrary* library)
{
    currentSiblings = library;
}

}  // namespace kvx
