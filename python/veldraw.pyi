"""Data operations on simulation results."""
# Made by python/make_stubs.py of python/veldraw.pyi.in and the registry of operations; do not edit.

from os import PathLike
from types import TracebackType
from typing import Any, Dict, Iterable, Iterator, List, Literal, Mapping, Optional, Sequence, Tuple, Type, Union

import numpy as np
from numpy.typing import ArrayLike, DTypeLike, NDArray

__version__: str

class Error(Exception):
    """Something was refused or has failed, for the reason in its text. Nothing has changed then."""

class Variable:
    """A variable of a data set."""
    @property
    def number(self) -> int: ...
    @property
    def name(self) -> str: ...
    @property
    def enabled(self) -> bool: ...
    @property
    def auxiliary_data(self) -> Dict[str, str]: ...
    @property
    def data_set(self) -> DataSet: ...

class Values:
    """The values of a variable in a zone, as NumPy sees an array. They are loaded when they are touched, not before."""
    @property
    def array(self) -> NDArray[Any]: ...
    def load(self) -> None: ...
    @property
    def shape(self) -> Tuple[int, ...]: ...
    @property
    def ndim(self) -> int: ...
    @property
    def size(self) -> int: ...
    @property
    def dtype(self) -> np.dtype[Any]: ...
    @property
    def location(self) -> Literal['points', 'cells']: ...
    @property
    def is_loaded(self) -> bool: ...
    @property
    def is_passive(self) -> bool: ...
    @property
    def share_count(self) -> int: ...
    @property
    def range(self) -> Optional[Tuple[float, float]]: ...
    def __array__(self, dtype: DTypeLike = ...) -> NDArray[Any]: ...
    def __getattr__(self, name: str) -> Any: ...
    def __getitem__(self, key: Any) -> Any: ...
    def __iter__(self) -> Iterator[Any]: ...
    def __len__(self) -> int: ...
    def __contains__(self, value: Any) -> bool: ...
    def __float__(self) -> float: ...
    def __int__(self) -> int: ...
    def __abs__(self) -> Any: ...
    def __add__(self, other: Any) -> Any: ...
    def __and__(self, other: Any) -> Any: ...
    def __eq__(self, other: Any) -> Any: ...  # type: ignore[override]
    def __floordiv__(self, other: Any) -> Any: ...
    def __ge__(self, other: Any) -> Any: ...
    def __gt__(self, other: Any) -> Any: ...
    def __invert__(self) -> Any: ...
    def __le__(self, other: Any) -> Any: ...
    def __lt__(self, other: Any) -> Any: ...
    def __mod__(self, other: Any) -> Any: ...
    def __mul__(self, other: Any) -> Any: ...
    def __ne__(self, other: Any) -> Any: ...  # type: ignore[override]
    def __neg__(self) -> Any: ...
    def __or__(self, other: Any) -> Any: ...
    def __pos__(self) -> Any: ...
    def __pow__(self, other: Any) -> Any: ...
    def __radd__(self, other: Any) -> Any: ...
    def __rfloordiv__(self, other: Any) -> Any: ...
    def __rmod__(self, other: Any) -> Any: ...
    def __rmul__(self, other: Any) -> Any: ...
    def __rpow__(self, other: Any) -> Any: ...
    def __rsub__(self, other: Any) -> Any: ...
    def __rtruediv__(self, other: Any) -> Any: ...
    def __sub__(self, other: Any) -> Any: ...
    def __truediv__(self, other: Any) -> Any: ...
    def __xor__(self, other: Any) -> Any: ...

class Writing:
    """Values that are being written, for a with statement."""
    def __enter__(self) -> NDArray[Any]: ...
    def __exit__(self, type: Optional[Type[BaseException]], value: Optional[BaseException],
                 traceback: Optional[TracebackType]) -> None: ...

class Zone:
    """Points with their cells, and values of the variables there."""
    @property
    def number(self) -> int: ...
    @property
    def name(self) -> str: ...
    @property
    def enabled(self) -> bool: ...
    @property
    def auxiliary_data(self) -> Dict[str, str]: ...
    @property
    def data_set(self) -> DataSet: ...
    @property
    def kind(self) -> str: ...
    @property
    def shape(self) -> Tuple[int, ...]: ...
    @property
    def point_count(self) -> int: ...
    @property
    def cell_count(self) -> int: ...
    @property
    def solution_time(self) -> float: ...
    @property
    def strand(self) -> Optional[int]: ...
    def __getitem__(self, variable: Union[int, str, Variable]) -> Values: ...
    def writing(self, variable: Union[int, str, Variable], *, shared: bool = False) -> Writing: ...

class VariableList:
    """The variables of a data set, by number from 1 on or by name."""
    def __len__(self) -> int: ...
    def __getitem__(self, key: Union[int, str]) -> Variable: ...
    def __iter__(self) -> Iterator[Variable]: ...
    def __contains__(self, name: str) -> bool: ...

class ZoneList:
    """The zones of a data set, by number from 1 on or by name."""
    def __len__(self) -> int: ...
    def __getitem__(self, key: Union[int, str]) -> Zone: ...
    def __iter__(self) -> Iterator[Zone]: ...
    def __contains__(self, name: str) -> bool: ...

class DataSet:
    """Zones and variables that belong together."""
    @property
    def title(self) -> str: ...
    @property
    def zones(self) -> ZoneList: ...
    @property
    def variables(self) -> VariableList: ...
    @property
    def auxiliary_data(self) -> Dict[str, str]: ...
    def save(self, file: Union[str, PathLike[str]], *, overwrite: bool = False) -> None: ...

_Zone = Union[int, str, Zone]
_Zones = Union[_Zone, Iterable[_Zone]]
_Variable = Union[int, str, Variable]
_Variables = Union[_Variable, Iterable[_Variable]]
_Numbers = Union[int, str, Iterable[Union[int, str]]]

def open(*files: Union[str, PathLike[str]], defer: Literal['auto', 'always', 'never'] = 'auto', new_frames: bool = False,
         follow_paths: bool = False) -> DataSet: ...
def save(file: Union[str, PathLike[str]], *, overwrite: bool = False) -> None: ...
def from_arrays(zones: Mapping[str, Mapping[str, ArrayLike]], *, cells: Mapping[str, Tuple[str, ArrayLike]] = ..., title: str = '',
                new_frames: bool = False) -> DataSet: ...
def data_set() -> Optional[DataSet]: ...
def data_sets() -> List[DataSet]: ...
def undo() -> None: ...
def redo() -> None: ...
def journal() -> str: ...
def set_threads(count: int) -> None: ...

def delete_variables(*, variables: _Variables) -> None:
    """Deletes variables in all zones."""

def load_variables(*, variables: _Variables, zones: _Zones = '*') -> None:
    """Loads the values of variables, and keeps them loaded."""

def set_value(*, zone: _Zone, variable: _Variable, index: int, value: float, shared: bool = False) -> None:
    """Stores one value."""

def duplicate_zones(*, zones: _Zones) -> None:
    """Appends a copy of each zone, which shares its values."""

def mirror_zones(*, zones: _Zones, plane: Literal['X', 'Y', 'Z']) -> None:
    """Appends a mirrored copy of each zone, the vector of the frame included."""

def rotate_zones(*, zones: _Zones, angle: float, axis: Union[Literal['X', 'Y', 'Z'], Sequence[float]] = 'Z', origin: Sequence[float] = (0, 0, 0), vector: bool = True, space: Optional[Literal['2d', '3d']] = None, x: Optional[_Variable] = None, y: Optional[_Variable] = None, z: Optional[_Variable] = None, u: Optional[_Variable] = None, v: Optional[_Variable] = None, w: Optional[_Variable] = None) -> None:
    """Rotates zones in place about an axis."""

def duplicate_zones_axially(*, zones: _Zones, angle: float, copies: int, offset: float = 0.0, add_to_strands: bool = True, axis: Union[Literal['X', 'Y', 'Z'], Sequence[float]] = 'Z', origin: Sequence[float] = (0, 0, 0), vector: bool = True, space: Optional[Literal['2d', '3d']] = None, x: Optional[_Variable] = None, y: Optional[_Variable] = None, z: Optional[_Variable] = None, u: Optional[_Variable] = None, v: Optional[_Variable] = None, w: Optional[_Variable] = None) -> None:
    """Appends rotated copies of zones; copy k stands at offset + k x angle."""

def enable_zone(*, zone: _Zone) -> None:
    """Lets a zone take part in plots and operations again."""

def disable_zone(*, zone: _Zone) -> None:
    """Keeps a zone out of plots and operations."""

def enable_variable(*, variable: _Variable) -> None:
    """Lets a variable take part in plots and operations again."""

def disable_variable(*, variable: _Variable) -> None:
    """Keeps a variable out of plots and operations."""

def interpolate_inverse_distance(*, zones: _Zones, destination: _Zone, variables: _Variables, exponent: float = 2.0, minimum_distance: float = 0.0, selection: Literal['all', 'nearest', 'octant'] = 'octant', points: int = 8) -> None:
    """Interpolates variables into a zone, weighted by the inverse distance from the source points."""

def krige(*, zones: _Zones, destination: _Zone, variables: _Variables, range: float = 0.3, zero_value: float = 0.0, drift: Literal['none', 'linear', 'quadratic'] = 'linear', selection: Literal['all', 'nearest', 'octant'] = 'octant', points: int = 8) -> None:
    """Interpolates variables into a zone by kriging."""

def interpolate_linearly(*, zones: _Zones, destination: _Zone, variables: _Variables, outside: Literal['unchanged', 'constant'] = 'unchanged', constant: float = 0.0) -> None:
    """Interpolates variables into a zone by the cells of the source zones."""

def probe_line(*, zones: _Zones, from_: Sequence[float], to: Sequence[float], points: int = 200) -> None:
    """Appends a zone of points along a line, with what all variables have there in the cells of zones."""

def smooth(*, zone: _Zone, variable: _Variable, passes: int = 1, coefficient: float = 0.5, boundary: Literal['fixed', 'first-order', 'second-order'] = 'fixed') -> None:
    """Moves the values of a variable towards the mean of their neighbours."""

def triangulate(*, zones: _Zones, boundaries: Optional[_Zones] = None, include_boundary_points: bool = False, keep_factor: float = 0.25) -> None:
    """Appends a zone of triangles between the points of zones, in the plane of X and Y."""

def fourier_transform(*, zones: _Zones, variables: _Variables, independent: _Variable, window: Literal['rectangular', 'triangular', 'hann', 'hamming'] = 'rectangular', conjugates: bool = False, obey_blanking: bool = False, replace_zones: bool = True, replace_variables: bool = True) -> None:
    """Appends frequencies, amplitudes and phases of variables along ordered zones of one dimension."""

def rename_zone(*, zone: _Zone, name: str) -> None:
    """Gives a zone another name."""

def rename_variable(*, variable: _Variable, name: str) -> None:
    """Gives a variable another name."""

def set_title(*, title: str) -> None:
    """Gives the data set another title."""

def set_auxiliary_data(*, name: str, value: str, save: bool = True, owner: Literal['data-set', 'frame', 'page', 'layout'] = 'data-set', zone: Optional[_Zone] = None, variable: Optional[_Variable] = None, line_map: Optional[int] = None) -> None:
    """Adds an item of auxiliary data, or gives it another value."""

def delete_auxiliary_data(*, name: str, owner: Literal['data-set', 'frame', 'page', 'layout'] = 'data-set', zone: Optional[_Zone] = None, variable: Optional[_Variable] = None, line_map: Optional[int] = None) -> None:
    """Deletes an item of auxiliary data."""

def new_frame(*, like: Optional[int] = None) -> None:
    """Adds a frame in the middle of the page, and makes it the active one."""

def set_frame_data(*, like: int) -> None:
    """Gives the active frame the data set of another one, and lays it out anew."""

def delete_frame() -> None:
    """Takes the active frame off the page."""

def activate_frame(*, frame: int) -> None:
    """Makes another frame the active one."""

def move_frame(*, x: float, y: float, width: float, height: float) -> None:
    """Puts the active frame elsewhere on the page."""

def rename_frame(*, name: str) -> None:
    """Gives the active frame another name."""

def set_contour_variable(*, variable: _Variable) -> None:
    """Chooses the variable whose values are shown as colours."""

def set_contour_colours(*, range: Optional[Literal['shown', 'fixed']] = None, min: Optional[float] = None, max: Optional[float] = None, levels: int = 0, map: Literal['viridis', 'inferno', 'cool-to-warm', 'rainbow', 'grey'] = 'viridis') -> None:
    """Chooses the colours of the contour, and the values that they go over."""

def set_value_blanking(*, on: bool = True, constraints: Optional[str] = None) -> None:
    """Leaves cells out of the active frame where a constraint holds at all of their points."""

def set_plot_type(*, type: Literal['2d', '3d', 'line']) -> None:
    """Chooses what the active frame shows."""

def assign_variable(*, to: Literal['X', 'Y', 'Z', 'U', 'V', 'W', 'C'], variable: Optional[_Variable] = None) -> None:
    """Chooses the variable of an axis, of a component of the vector, or of the contour."""

def set_plot_option(*, option: Literal['FieldLayers/ShowMesh', 'FieldLayers/ShowContour', 'FieldContour/Bands', 'FieldContour/WithoutEnds', 'FieldContour/Log', 'FieldContour/Lines', 'FieldContour/Labels', 'FieldLayers/ShowVector', 'FieldVector/EqualLengths', 'FieldLayers/ShowCuts', 'FieldAxes/Stretch', 'FieldAxes/Parallel', 'LinePlotLayers/ShowLines', 'LinePlotLayers/ShowSymbols', 'LinePlotAxes/LogX', 'LinePlotAxes/LogY', 'LinePlotAxes/LogY2'], on: bool) -> None:
    """Switches something that the plot shows on or off."""

def set_line_plot(*, zone: _Zone, x: _Variable, y: _Variable) -> None:
    """Has the first curve show a variable of a zone over another one."""

def set_line_axis(*, axis: Literal['x', 'y', 'y2'], range: Optional[Literal['fit', 'fixed']] = None, min: Optional[float] = None, max: Optional[float] = None, title: Optional[str] = None) -> None:
    """Changes the range and the title of an axis of a line plot."""

def set_plot_title(*, title: str) -> None:
    """Writes a title above a line plot."""

def new_line_map() -> None:
    """Adds a curve to a line plot."""

def set_line_maps(*, maps: _Numbers, show: Optional[bool] = None, name: Optional[str] = None, zone: Optional[_Zone] = None, x: Optional[_Variable] = None, y: Optional[_Variable] = None, colour: Optional[str] = None, line: Optional[Literal['solid', 'dashed', 'dotted', 'dash-dot', 'dash-dot-dot', 'none']] = None, width: Optional[float] = None, symbols: Optional[Literal['plot', 'yes', 'no']] = None, axis: Optional[Literal['y', 'y2']] = None) -> None:
    """Changes curves of a line plot."""

def duplicate_line_maps(*, maps: _Numbers) -> None:
    """Puts a copy behind each of some curves of a line plot."""

def delete_line_maps(*, maps: _Numbers) -> None:
    """Takes curves out of a line plot."""

def set_solution_time(*, time: float) -> None:
    """Shows another moment of a transient data set."""
