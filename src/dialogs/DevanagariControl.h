// Labels, buttons and boxes to tick with a caption in the Devanagari font, by which assistive technology calls them.
#pragma once

#include "dialogs/Accessibility.h"
#include "dialogs/Look.h"

#include <string_view>

namespace tolvan {

// `name` is the object's; `parent` owns the control, or the layout into which it is put.
template <class Control>
Control* devanagariControl(std::string_view caption, const QString& name, QWidget* parent = nullptr) {
    auto* const control = new Control(look::captionText(caption), parent);
    control->setObjectName(name);
    control->setAccessibleName(accessible::unicode(caption));
    control->setFont(look::controlFont(Font::Devanagari));
    return control;
}

}  // namespace tolvan
