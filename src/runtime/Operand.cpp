#include "runtime/Operand.h"

#include <cstring>
#include <limits>

#include "runtime/CMacroCommonValue.h"
#include "runtime/VariableTable.h"

namespace macroengine {

// The tag of an operand needs the three lowest bits of what it points to.
static_assert(alignof(Variable) >= 8 && alignof(CMacroCommonValue) >= 8 && alignof(ElementReference) >= 8);
static_assert(__STDCPP_DEFAULT_NEW_ALIGNMENT__ >= 8);

Operand::Operand(const CMacroCommonValue& value) {
    const ValueView& view = value.View();
    switch (view.eType) {
        case ValueKind::Integer:
            *this = Integer(view.integer);
            break;
        case ValueKind::Floating:
            *this = Floating(view.floating);
            break;
        case ValueKind::String:
            *this = String(view.Text());
            break;
        case ValueKind::VariableReference:
            *this = VariableReference(*view.variable);
            break;
        case ValueKind::ResultReference:
            *this = ResultReference(view.result);
            break;
        case ValueKind::ElementReference:
            Retain(view);
            word_ = ToWord(view.element, kElement);
            break;
        case ValueKind::None:
            break;
        default:
            word_ = ToWord(new CMacroCommonValue(value), kLiteral);
            break;
    }
}

Operand Operand::Floating(double value) {
    constexpr double kLargestSingle = std::numeric_limits<float>::max();
    if (value >= -kLargestSingle && value <= kLargestSingle) {
        const auto single = static_cast<float>(value);
        if (single == value) {
            std::uint32_t bits;
            std::memcpy(&bits, &single, sizeof bits);
            return Operand(Word{bits} << 32U | kFloating);
        }
    }
    return Operand(ToWord(new CMacroCommonValue(ValueView::Floating(value)), kLiteral));
}

Operand Operand::String(std::string_view text) {
    SharedText* const block = text.empty() ? nullptr : SharedText::CreateFixed(text);
    return Operand(ToWord(block, kText));
}

Operand Operand::Element(Variable& variable, OperandList subscripts) {
    return Operand(ToWord(new ElementReference(variable, std::move(subscripts)), kElement));
}

/// @return what the inline part of View leaves.
ValueView Operand::OtherView() const {
    ValueView view;
    switch (Tag()) {
        case kFloating: {
            const auto bits = static_cast<std::uint32_t>(word_ >> 32U);
            float single;
            std::memcpy(&single, &bits, sizeof single);
            return ValueView::Floating(single);
        }
        case kText:
            view.eType = ValueKind::String;
            view.text = Address<SharedText>();
            view.length = view.text == nullptr ? 0 : view.text->GetUsed();
            return view;
        case kElement:
            view.eType = ValueKind::ElementReference;
            view.element = Address<ElementReference>();
            return view;
        default:
            return Address<CMacroCommonValue>()->View();
    }
}

void Operand::Release() {
    switch (Tag()) {
        case kText:
            if (auto* const text = Address<SharedText>()) text->Release();
            break;
        case kElement:
            Address<ElementReference>()->Release();
            break;
        case kLiteral:
            delete Address<CMacroCommonValue>();
            break;
        default:
            OperandList::Destroy(Address<OperandList::Block>());
            break;
    }
}

}  // namespace macroengine
