// The calibration table of one block of a shared image, as the module's Table objects hold it.
#pragma once

#include <EepromImage.h>
#include <ImageTables.h>

#include <memory>
#include <pybind11/pybind11.h>

namespace epromPython {

using ImagePtr = std::shared_ptr<Tupsim::EepromImage>;

struct Table {
    ImagePtr image;
    int index;

    Tupsim::TableContent content() const {
        Tupsim::TableContent result;
        if (!Tupsim::readTable(*image, index, result))
            throw pybind11::value_error("the block is no longer a calibration table");
        return result;
    }
};

// Adds the NumPy, pandas, matplotlib and notebook views to the module's Table and Image.
void addTableViews(pybind11::module_& m);

} // namespace epromPython
