# Tables as NumPy arrays with their frequency axis, as pandas DataFrames and matplotlib plots, the
# notebook views, and the optional packages reported clearly when missing.
import sys

import numpy as np
import pytest

import epromdatablock as ed


def test_values_and_axis_match_the_cells_and_the_vector(sample_path):
    image = ed.Image.open(sample_path)
    alc = image.find(15731).table
    values = alc.values
    assert values.dtype == np.float64 and values.shape == alc.shape == (4, 10)
    assert values.tolist() == alc.cells
    assert alc.axis.tolist() == [row[0] for row in image.find(15730).table.cells]
    assert image.find(15730).table.axis is None and image.find(15730).table.axis_problem is None
    values[0, 0] = 0  # a copy: the image is untouched until it is assigned back
    assert alc.cells[0][0] == 1812.0
    level = image.find(15716).table
    assert level.axis[0] == 1e6 and level.values[0, 3] == 1940 * 0.01


def test_assigning_values_goes_through_set_cell_all_or_nothing(scratch):
    image = ed.Image.open(scratch)
    level = image.find(15716).table
    before = image.to_bytes()
    values = level.values
    values[1, 0] = 18.75
    values[0, 7] = 1e40  # does not fit int32: nothing is set
    with pytest.raises(ValueError, match=r"cell \(0, 7\) of RFBO_RFLEVEL_MAX_DATA"):
        level.values = values
    assert image.to_bytes() == before
    values[0, 7] = 17.0
    level.values = values
    # Only the changed cell is stored (19.40 would read back as 1939 through the text form).
    assert level.raw[1][0] == 1875 and level.raw[0][3] == 1940
    assert image.verify()
    with pytest.raises(ValueError, match=r"shape \(2, 8\)"):
        level.values = np.zeros((3, 8))


def test_dataframe_and_plot(sample_path):
    pandas = pytest.importorskip("pandas")
    matplotlib = pytest.importorskip("matplotlib")
    matplotlib.use("Agg")
    table = ed.Image.open(sample_path).find(15843).table
    frame = table.to_dataframe()
    assert isinstance(frame, pandas.DataFrame) and frame.shape == (4, 5)
    assert list(frame.index) == [0, 10, 20, 30] and frame.index.name == "index"
    assert list(frame.columns) == [1e8, 5e8, 1e9, 2e9, 3e9] and frame.columns.name == "Hz"
    assert frame.loc[10, 1e9] == 998.0
    ax = table.plot()
    lines = ax.get_lines()
    assert [line.get_label() for line in lines] == ["index 0", "index 10", "index 20", "index 30"]
    assert list(lines[1].get_xdata()) == [100.0, 500.0, 1000.0, 2000.0, 3000.0]
    assert list(lines[1].get_ydata()) == [1003.0, 1001.0, 998.0, 995.0, 990.0]
    assert ax.get_xlabel() == "frequency / MHz" and ax.get_legend() is not None
    import matplotlib.pyplot as plt
    figure, own = plt.subplots()
    assert table.plot(ax=own) is own and len(own.get_lines()) == 4
    plt.close("all")


def test_missing_optional_packages_are_named(sample_path, monkeypatch):
    table = ed.Image.open(sample_path).find(15731).table
    monkeypatch.setitem(sys.modules, "pandas", None)
    monkeypatch.setitem(sys.modules, "matplotlib.pyplot", None)
    with pytest.raises(ImportError, match=r"Table.to_dataframe\(\) needs pandas.*python3-pandas"):
        table.to_dataframe()
    with pytest.raises(ImportError, match=r"Table.plot\(\) needs matplotlib.*python3-matplotlib"):
        table.plot()


def test_notebook_views_escape_and_stay_small(sample_path):
    image = ed.Image.open(sample_path)
    html = image._repr_html_()
    assert "32768 bytes, 14 blocks, ok" in html and html.count("<tr>") == 15
    table = image.find(16003).table._repr_html_()
    assert "<th>100 MHz</th>" in table and table.count("<tr>") == 3
    broken = ed.Image.from_bytes(b"<b>" * 10)
    assert "<b><b>" not in broken._repr_html_()
