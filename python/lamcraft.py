# SPDX-License-Identifier: BSD-3-Clause
"""Reads the material folders that lamcraft writes.

    import lamcraft

    material = lamcraft.load("results/im7-8552")
    for environment in material.environments:
        print(environment.temperature, environment.moisture, environment.lamina.E11)

Every number of mdata.xml has a place in the dataclasses below, and so has what fdata.xml adds. All
values are in newton, metre, kilogram, kelvin and second, if the deck stated its unit system; axes
and meanings are those of docs/datafile.md.

Needs the standard library alone. Where NumPy is installed, matrices and vectors of decompositions
are arrays of it, else lists (of lists).
"""

from __future__ import annotations

import contextlib
import dataclasses
import gc
import os
import xml.etree.ElementTree as ElementTree
from dataclasses import dataclass, field
from pathlib import Path
from typing import Dict, List, Optional, Union

try:
    import numpy
except ImportError:
    numpy = None

__all__ = [
    "Cohesive",
    "Constituent",
    "DamageState",
    "Decomposition",
    "Distribution",
    "Environment",
    "FatigueConstants",
    "FatigueLaw",
    "Fit",
    "FolderError",
    "Fracture",
    "Invariants",
    "Laminate",
    "Material",
    "Prefail",
    "PropertySet",
    "Scatter",
    "ShearLaw",
    "ShearPoint",
    "SnRecord",
    "Solver",
    "UniStrengths",
    "WovenStrengths",
    "load",
]


class FolderError(Exception):
    """A folder that cannot be read; the text names it and says why."""


@dataclass
class Distribution:
    """One of the five distributions of a property that scatters.

    name: "normal", "truncatednormal", "weibull2", "weibull3" or "ext_i_large".
    parameters: by their names in the file (such as "mean", "stddev"), in the property's unit, but
        for "shapeparam" [-]. All are zero where the deck does not give this distribution.
    """

    name: str
    parameters: Dict[str, float]


@dataclass
class Scatter:
    """Range and distributions of a property.

    min, max: range, in the property's unit. distributions: all five, by name.
    """

    min: float
    max: float
    distributions: Dict[str, Distribution]


@dataclass
class PropertySet:
    """Elastic and thermal constants of a lamina, a tow, a fibre or a matrix.

    E11, E22, E33: Young's moduli [Pa]. v12, v13, v23: Poisson's ratios [-], v12 the contraction
    along 2 under a stress along 1. G12, G13, G23: shear moduli [Pa]. A11, A22, A33: thermal
    expansion [1/K]. scatter: of those constants that scatter, by name.
    """

    E11: float
    E22: float
    E33: float
    v12: float
    v13: float
    v23: float
    G12: float
    G13: float
    G23: float
    A11: float
    A22: float
    A33: float
    scatter: Dict[str, Scatter] = field(default_factory=dict)


@dataclass
class UniStrengths:
    """Strengths of a unidirectional ply [Pa], p in tension and n in compression.

    Those of direction 3 repeat direction 2, and S13 repeats S12.
    """

    pS11: float
    nS11: float
    pS22: float
    nS22: float
    pS33: float
    nS33: float
    S12: float
    S13: float
    S23: float
    scatter: Dict[str, Scatter] = field(default_factory=dict)


@dataclass
class WovenStrengths:
    """Strengths of a weave [Pa]: K at the knee of the curve, U the ultimate one.

    PS11: tension along the fill. NS11: compression along the fill. S12: shear in the plane.
    """

    PS11K: float
    PS11U: float
    NS11K: float
    NS11U: float
    S12K: float
    S12U: float
    scatter: Dict[str, Scatter] = field(default_factory=dict)


@dataclass
class Invariants:
    """Critical strain invariants [-] of matrix and fibre."""

    dilatation: float
    distortion: float
    tensileFiberDistortion: float
    compressiveFiberDistortion: float
    tensileStrain: float
    compressiveStrain: float
    scatter: Dict[str, Scatter] = field(default_factory=dict)


@dataclass
class Fracture:
    """Fracture energies [N/m].

    GmC, GmnC, GmsC: of the matrix, total, normal and shear. alpha: exponent of mode mixing [-].
    GftC, GfcC: of the fibre, in tension and in compression.
    """

    GmC: float
    GmnC: float
    GmsC: float
    alpha: float
    GftC: float
    GfcC: float
    scatter: Dict[str, Scatter] = field(default_factory=dict)


@dataclass
class Cohesive:
    """Cohesive law between plies; n normal, s and t shear.

    Knn, Kss, Ktt: stiffness before damage [Pa/m], converted as a stress from other unit systems.
    Sn, Ss, St: strength [Pa]. dmf_dm0: separation at failure less that at the strength [m].
    GC, GnC, GsC, GtC: fracture energy, total and by direction [N/m]. alpha: exponent of mode mixing
    [-]. d2n, d2s, d2t: separation at failure [m].
    """

    Knn: float
    Kss: float
    Ktt: float
    Sn: float
    Ss: float
    St: float
    dmf_dm0: float
    GC: float
    GnC: float
    GsC: float
    GtC: float
    alpha: float
    d2n: float
    d2s: float
    d2t: float
    scatter: Dict[str, Scatter] = field(default_factory=dict)


@dataclass
class SnRecord:
    """One fatigue test.

    stress: of the largest magnitude in a cycle [Pa]. life: cycles to failure [-]. f: frequency [Hz].
    R: smallest stress over largest [-]. theta: angle between load and fibre (fill) [degree].
    """

    stress: float
    life: float
    f: float
    R: float
    theta: float


@dataclass
class ShearLaw:
    """Nonlinear shear before failure.

    thr: shear stress up to which the ply is linear [Pa]. m [1/Pa], b [-]: above it the secant
    modulus is the initial one times d = m stress + b. c2mdeg0, c2mdeg1, c2mdeg2 [-]: the matrix'
    shear modulus is the initial one times c2mdeg0 + c2mdeg1 d + c2mdeg2 d^2.
    """

    m: float
    b: float
    thr: float
    c2mdeg0: float
    c2mdeg1: float
    c2mdeg2: float


@dataclass
class ShearPoint:
    """A point of the measured shear curve: stress [Pa], engineering shear strain [-]."""

    stress: float
    strain: float


@dataclass
class Prefail:
    """Nonlinear shear: the law, and the measured points in the order of the deck."""

    law: ShearLaw
    points: List[ShearPoint]


@dataclass
class FatigueConstants:
    """Bond-breaking constants of the matrix under one direction of load.

    U_breaking, U_healing: activation energies [J/mol]. gamma_breaking, gamma_healing: activation
    volumes [J/(mol Pa)]. Psi: load that broken bonds hand on [-]. k: factor of the amplitude [-].
    """

    U_breaking: float
    U_healing: float
    gamma_breaking: float
    gamma_healing: float
    Psi: float
    k: float


@dataclass
class FatigueLaw:
    """The matrix' fatigue constants for load along the fibres and across."""

    longitudinal: FatigueConstants
    transverse: FatigueConstants


@dataclass
class Decomposition:
    """How a constituent shares in the stress and the strain of its parent.

    stress: 6x6 matrix B [-], the constituent's mean stress is B times the parent's.
    strain: 6x6 matrix A [-], the same of strains. thermal_stress [Pa/K], thermal_strain [1/K]: six
    numbers each, to be added for each kelvin above the reference temperature. Components are 11, 22,
    33, 12, 13, 23 with engineering shear strains; matrix[i][j] is row i, column j.
    """

    stress: object
    strain: object
    thermal_stress: object
    thermal_strain: object


@dataclass
class DamageState:
    """A weave in one of its damage states.

    number: 1 + pocket + 2 fill + 6 warp. pocket: 0 intact, 1 failed. fill, warp: 0 intact, 1 matrix
    failed, 2 matrix and fibre failed. composite: constants of the weave. constituents: constants by
    name ("matrixpocket", "fill", "fill_fiber", "fill_matrix", "warp", ...; the interface has none).
    decompositions: by name, the interface's too.
    """

    number: int
    composite: PropertySet
    constituents: Dict[str, PropertySet] = field(default_factory=dict)
    decompositions: Dict[str, Decomposition] = field(default_factory=dict)

    @property
    def pocket(self) -> int:
        return (self.number - 1) % 2

    @property
    def fill(self) -> int:
        return (self.number - 1) // 2 % 3

    @property
    def warp(self) -> int:
        return (self.number - 1) // 6


@dataclass
class Fit:
    """Error of a fit before and after [-], root mean square, and its iterations.

    Of elastic constants and expansions the relative error; of fatigue that of log10(life).
    """

    initial: float
    final: float
    iterations: int


@dataclass
class Solver:
    """How the fits of an environment ended; fatigue only where fdata.xml is of a ply."""

    elastic_constants: Fit
    thermal_expansion: Fit
    fatigue: Optional[Fit] = None


@dataclass
class Laminate:
    """A laminate of the deck with its coefficients of thickness strengthening [-]."""

    name: str
    c1: float
    c2: float
    c3: float
    c4: float
    c5: float


@dataclass
class Constituent:
    """A constituent of the composite or of a tow.

    number: its place there. type: material of a fibre or a matrix, "composite" for a tow and for
    the interface, None for the matrix pocket. count: its own constituents, 1 when it has none.
    volume_fraction: of its parent [-]. degradation: factor on the moduli once it has failed [-],
    None where the deck gives none. scatter: {"volume_fraction": ...} where it scatters.
    """

    number: int
    type: Optional[str]
    name: str
    count: int
    volume_fraction: float
    degradation: Optional[float]
    constituents: List[Constituent]
    scatter: Dict[str, Scatter] = field(default_factory=dict)


@dataclass
class Environment:
    """A material at one temperature and moisture.

    temperature: absolute [K]. moisture: "ambient", "dry" or "wet". lamina: the ply or weave that the
    fitted constituents give. fiber, matrix: the fitted phases (of a weave those in its fill tow).
    strengths: of a ply or of a weave. sn: fatigue tests. invariants, fracture, cohesive, prefail:
    None where the deck has none. fatigue: None without fitted constants. states: the damage states
    of a weave, intact first; none of a ply.
    """

    temperature: float
    moisture: str
    solver: Solver
    laminates: List[Laminate]
    lamina: PropertySet
    fiber: PropertySet
    matrix: PropertySet
    strengths: Union[UniStrengths, WovenStrengths]
    sn: List[SnRecord]
    invariants: Optional[Invariants]
    fracture: Optional[Fracture]
    cohesive: Optional[Cohesive]
    prefail: Optional[Prefail]
    fatigue: Optional[FatigueLaw]
    states: List[DamageState]


@dataclass
class Material:
    """A material folder.

    version: of the data file's format. density [kg/m3]. reference_temperature: free of thermal
    stress [K]. ply_thickness [m]. constituent_count: 2 of a ply, 3 of a weave. harness: 1 plain
    weave, 4, 5 or 8 satin, None of a ply. unit_cell: 1 of a weave, None of a ply. scatter: of
    "reference_temperature" and "ply_thickness", where they scatter.
    """

    folder: Path
    name: str
    version: str
    density: float
    constituent_count: int
    unit_cell: Optional[int]
    harness: Optional[int]
    reference_temperature: float
    ply_thickness: float
    constituents: List[Constituent]
    environments: List[Environment]
    scatter: Dict[str, Scatter] = field(default_factory=dict)

    @property
    def is_woven(self) -> bool:
        return self.harness is not None


def load(folder: Union[str, os.PathLike]) -> Material:
    """The material in a folder: its mdata.xml and, where there is one, its fdata.xml.

    Raises FolderError, which names the folder, for one that cannot be read: it is missing, has no
    mdata.xml, or a file is cut off or not of lamcraft.
    """
    folder = Path(folder)
    if not folder.is_dir():
        raise FolderError(f"{folder}: there is no such folder")
    material = _read(folder, "mdata.xml")
    # A weave's fdata.xml repeats its mdata.xml.
    if not material.is_woven and (folder / "fdata.xml").exists():
        _add_fatigue(material, _read(folder, "fdata.xml"))
    return material


def _add_fatigue(material: Material, fatigue: Material) -> None:
    if fatigue.name != material.name or len(fatigue.environments) != len(material.environments):
        raise FolderError(f"{material.folder}: fdata.xml is of another material than mdata.xml")
    for target, source in zip(material.environments, fatigue.environments):
        target.solver.fatigue = source.solver.fatigue
        target.fatigue = source.fatigue


def _read(folder: Path, name: str) -> Material:
    try:
        with _paused_collector():
            return _material(folder, folder / name)
    except OSError as error:
        raise FolderError(f"{folder}: {name} cannot be read: {error.strerror}") from error
    except ElementTree.ParseError as error:
        raise FolderError(f"{folder}: {name} is not whole: {error}") from error
    except ValueError as error:
        raise FolderError(f"{folder}: {name} is no data file of lamcraft: {error}") from error


@contextlib.contextmanager
def _paused_collector():
    """Half a million elements without cycles come and go: looking for some takes half the time."""
    was_enabled = gc.isenabled()
    gc.disable()
    try:
        yield
    finally:
        if was_enabled:
            gc.enable()


def _child(element, tag):
    child = element.find(tag)
    if child is None:
        raise ValueError(f"<{element.tag}> has no <{tag}>")
    return child


def _attribute(element, name):
    value = element.get(name)
    if value is None:
        raise ValueError(f"<{element.tag}> has no attribute {name}")
    return value


def _number(element, name="value"):
    return float(_attribute(element, name))


def _integer(element, name="value"):
    return int(_attribute(element, name))


def _optional(element, tag, read):
    child = element.find(tag)
    return None if child is None else read(child)


def _scatter(element):
    """The scatter of a property; None where it has none."""
    if len(element) == 0:
        return None
    distributions = {
        child.tag: Distribution(child.tag, {name: float(text) for name, text in child.items()})
        for child in element
    }
    return Scatter(_number(element, "min"), _number(element, "max"), distributions)


def _scatter_of(element, tags_by_name):
    found = {name: _scatter(_child(element, tag)) for name, tag in tags_by_name.items()}
    return {name: scatter for name, scatter in found.items() if scatter is not None}


def _numbers_of(record_type):
    return [entry.name for entry in dataclasses.fields(record_type) if entry.name != "scatter"]


_PROPERTY_TAGS = {
    name: name.replace("v", "NU").replace("A", "CTE") for name in _numbers_of(PropertySet)
}


def _properties(element, record_type, tags_by_name=None):
    """A record of properties, each in a child of its own."""
    tags_by_name = tags_by_name or {name: name for name in _numbers_of(record_type)}
    values = {name: _number(_child(element, tag)) for name, tag in tags_by_name.items()}
    return record_type(scatter=_scatter_of(element, tags_by_name), **values)


def _property_set(element):
    return _properties(element, PropertySet, _PROPERTY_TAGS)


def _attributes(element, record_type):
    """A record of numbers, each in an attribute."""
    return record_type(**{name: _number(element, name) for name in _numbers_of(record_type)})


def _fit(element):
    return Fit(
        _number(element, "initial"), _number(element, "final"), _integer(element, "iterations")
    )


def _solver(element):
    return Solver(
        _fit(_child(element, "elastic_constants")),
        _fit(_child(element, "thermal_expansion")),
        _optional(element, "fatigue", _fit),
    )


def _laminate(element):
    strengthening = _child(element, "thickness_strengthening")
    coefficients = {name: _number(strengthening, name) for name in ("c1", "c2", "c3", "c4", "c5")}
    return Laminate(_attribute(element, "name"), **coefficients)


def _prefail(element):
    if _attribute(element, "exists") != "yes":
        return None
    points = [_attributes(point, ShearPoint) for point in _child(element, "shear_ss").iter("pt")]
    return Prefail(_attributes(_child(element, "sheardeg"), ShearLaw), points)


def _fatigue_constants(element):
    energy = _child(element, "U")
    volume = _child(element, "gamma")
    return FatigueConstants(
        _number(_child(energy, "breaking")),
        _number(_child(energy, "healing")),
        _number(_child(volume, "breaking")),
        _number(_child(volume, "healing")),
        _number(_child(element, "Psi")),
        _number(_child(element, "k")),
    )


def _fatigue_law(element):
    return FatigueLaw(
        _fatigue_constants(_child(element, "longitudinal")),
        _fatigue_constants(_child(element, "transverse")),
    )


_VECTOR_TAGS = [f"D1{column}" for column in range(1, 7)]
_MATRIX_TAGS = [f"D{row}{column}" for row in range(1, 7) for column in range(1, 7)]


def _decomposed(element, tags):
    if [entry.tag for entry in element] != tags:
        raise ValueError(f"<{element.tag}> has other numbers than {tags[0]} to {tags[-1]}")
    return [float(entry.attrib["value"]) for entry in element]


def _vector(element):
    values = _decomposed(element, _VECTOR_TAGS)
    return numpy.array(values) if numpy else values


def _matrix(element):
    values = _decomposed(element, _MATRIX_TAGS)
    if numpy:
        return numpy.array(values).reshape(6, 6)
    return [values[row : row + 6] for row in range(0, 36, 6)]


def _decomposition(element):
    return Decomposition(
        _matrix(_child(element, "stress")),
        _matrix(_child(element, "strain")),
        _vector(_child(element, "Tstress")),
        _vector(_child(element, "Tstrain")),
    )


def _name_of(constituent):
    return _attribute(_child(constituent, "name"), "value")


def _state(states, element):
    number = _integer(element, "set")
    if number not in states:
        raise ValueError(f"<{element.tag}> is of set {number}, which the composite has not")
    return states[number]


def _named(by_name, name):
    if name not in by_name:
        raise ValueError(f"an environment has no constituent {name}")
    return by_name[name]


def _states(environment):
    """The damage states of a weave by the sets of its composite."""
    states = {}
    for element in _child(environment, "composite").iterfind("props"):
        number = _integer(element, "set")
        states[number] = DamageState(number, _property_set(element))
    for constituent in environment.iter("constituent"):
        name = _name_of(constituent)
        for element in constituent.iterfind("props"):
            _state(states, element).constituents[name] = _property_set(element)
        for element in constituent.iterfind("decomp"):
            _state(states, element).decompositions[name] = _decomposition(element)
    return list(states.values())


def _phases(environment, states):
    """The fitted fibre and matrix, and the matrix' fatigue constants."""
    if states:
        intact = states[0].constituents
        return _named(intact, "fill_fiber"), _named(intact, "fill_matrix"), None
    by_name = {_name_of(element): element for element in environment.iterfind("constituent")}
    matrix = _named(by_name, "matrix")
    return (
        _property_set(_child(_named(by_name, "fiber"), "props")),
        _property_set(_child(matrix, "props")),
        _optional(matrix, "fatigue", _fatigue_law),
    )


def _environment(element, is_woven):
    composite = _child(element, "composite")
    states = _states(element) if is_woven else []
    fiber, matrix, fatigue = _phases(element, states)
    return Environment(
        temperature=_number(element, "temperature"),
        moisture=_attribute(element, "moisture"),
        solver=_solver(_child(element, "solver")),
        laminates=[_laminate(laminate) for laminate in element.iterfind("laminate")],
        lamina=states[0].composite if states else _property_set(_child(composite, "props")),
        fiber=fiber,
        matrix=matrix,
        strengths=_properties(
            _child(composite, "failcoeffs"), WovenStrengths if is_woven else UniStrengths
        ),
        sn=[_attributes(test, SnRecord) for test in _child(composite, "fatigue").iterfind("SN")],
        invariants=_optional(
            composite, "critical_invariants", lambda found: _properties(found, Invariants)
        ),
        fracture=_optional(composite, "fracture", lambda found: _properties(found, Fracture)),
        cohesive=_optional(composite, "cohesive", lambda found: _properties(found, Cohesive)),
        prefail=_optional(composite, "prefailNL", _prefail),
        fatigue=fatigue,
        states=states,
    )


def _constituent(element):
    return Constituent(
        number=_integer(element, "number"),
        type=element.get("type"),
        name=_name_of(element),
        count=_integer(_child(element, "ncons")),
        volume_fraction=_number(_child(element, "VF")),
        degradation=_optional(element, "degradation", _number),
        constituents=[_constituent(child) for child in element.iterfind("constituent")],
        scatter=_scatter_of(element, {"volume_fraction": "VF"}),
    )


def _environments(path):
    """The root, and its environments, whose elements are forgotten one by one to save memory."""
    events = ElementTree.iterparse(path, events=("start", "end"))
    _, root = next(events)
    if root.tag != "ZRN":
        raise ValueError(f"its root is <{root.tag}>, not <ZRN>")
    environments = []
    for event, element in events:
        if event == "end" and element.tag == "environment":
            is_woven = root.find("composite/nharness") is not None
            environments.append(_environment(element, is_woven))
            element.clear()
    return root, environments


def _material(folder, path):
    root, environments = _environments(path)
    composite = _child(root, "composite")
    return Material(
        folder=folder,
        name=_attribute(root, "material"),
        version=_attribute(root, "version"),
        density=_number(_child(composite, "density")),
        constituent_count=_integer(_child(composite, "ncons")),
        unit_cell=_optional(composite, "unitcell", _integer),
        harness=_optional(composite, "nharness", _integer),
        reference_temperature=_number(_child(composite, "tref")),
        ply_thickness=_number(_child(composite, "plyt")),
        constituents=[_constituent(element) for element in root.iterfind("constituent")],
        environments=environments,
        scatter=_scatter_of(
            composite, {"reference_temperature": "tref", "ply_thickness": "plyt"}
        ),
    )
