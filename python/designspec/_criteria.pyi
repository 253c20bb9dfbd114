"""Made by tools/make_stubs.py: the types of the criteria and their fields."""

from typing import Any, Dict, List, Mapping, Optional, Tuple, Union

from . import _designspec
from ._table import SpeedTable

FIELDS: Dict[str, Tuple[str, List[Tuple[str, str, str, str]]]]
CRITERIA: Dict[str, type]
Rows = List[Dict[str, Any]]
Values = Union[Mapping[int, float], Tuple[Any, Any], Any]

class TableField:
    def __get__(self, criterion: object, owner: Optional[type] = ...) -> SpeedTable: ...
    def __set__(self, criterion: object, values: Values) -> None: ...

class Criterion:
    def __init__(self, core: _designspec.Specification) -> None: ...
    @classmethod
    def fields(cls) -> List[str]: ...
    def to_dict(self) -> Dict[str, Any]: ...
    def update(self, values: Dict[str, Any]) -> None: ...

class BeelineLen(Criterion):  # 直线长度
    MaxLen: float  # 最大直线长度 (倍设计速度(km/h))
    MinLenInOneDir: float  # 同向曲线间最小直线长度 (倍设计速度(km/h))
    MinLenReverseCurve: float  # 反向曲线间最小直线长度 (倍设计速度(km/h))
    MaxLenCriterion: str  # 最大直线长度的数据来源
    MinLenInOneDirCriterion: str  # 同向曲线间最小直线长度的数据来源
    MinLenReverseCurveCriterion: str  # 反向曲线间最小直线长度的数据来源

class CircularCurveRad(Criterion):  # 圆曲线半径
    MaxRad: int  # 圆曲线最大半径 (m)
    MaxRadCriterion: str  # 圆曲线最大半径的数据来源
    MinRadCriterion: str  # 圆曲线最小半径的数据来源
    noSuperelevationMinRad: TableField  # 不设超高最小半径 (m)
    SuperelevationRecommendRad: TableField  # 设超高推荐半径 (m)
    SuperelevationMinRad: TableField  # 设超高最小半径 (m)

class CurveMinLen(Criterion):  # 平曲线与圆曲线最小长度
    Criterion: str  # 数据来源
    HorizontalCurveMinLen: TableField  # 平曲线最小长度 (m)
    CircularCurveMinLen: TableField  # 圆曲线最小长度 (m)

class SmallAngleCurveMinLen(Criterion):  # 小转角平曲线最小长度
    Criterion: str  # 数据来源
    HorizontalCurveMinLen: TableField  # 平曲线最小长度 (m/α)

class TransitionCurveMinLen(Criterion):  # 缓和曲线最小长度
    NoTCBySuperelevation: bool  # 不设超高时不设缓和曲线
    Criterion: str  # 数据来源
    MinLen: TableField  # 缓和曲线最小长度 (m)
    NoTCByMinRad: TableField  # 不设缓和曲线的最小圆曲线半径 (m)

class LonGrad(Criterion):  # 纵坡坡度
    MinGrad: float  # 最小纵坡 (%)
    GradeCompensationOnPlateau: float  # 高原地区最大纵坡折减 (%)
    MaxGradeOnSnowFrozenRegion: float  # 积雪冰冻地区最大纵坡 (%)
    Criterion: str  # 数据来源
    MaxGradRecommendedValues: TableField  # 最大纵坡推荐值 (%)
    MaxGradLimitedValues: TableField  # 最大纵坡限制值 (%)

class MaxResultantGrad(Criterion):  # 最大合成坡度
    Criterion: str  # 数据来源
    MaxResultantGradOnSnowFrozenRegion: float  # 积雪冰冻地区最大合成坡度 (%)
    CityRoad: TableField  # 城市道路 (%)
    FreeWay: TableField  # 高速公路 (%)
    HighwayClass1: TableField  # 一级公路 (%)
    HighwayClass2: TableField  # 二级公路 (%)
    HighwayClass3: TableField  # 三级公路 (%)
    HighwayClass4: TableField  # 四级公路 (%)
    OtherRoad: TableField  # 其它道路 (%)

class LonGradMaxLen(Criterion):  # 纵坡最大坡长
    Criterion: str  # 数据来源
    rows: Rows  # 最大坡长 (m)
    def query(self, gradient: float, speed: int, mode: str = ...) -> Optional[int]: ...

class LonGradMinLen(Criterion):  # 纵坡最小坡长
    Criterion: str  # 数据来源
    MinLens: TableField  # 最小坡长 (m)

class VerticalCurveMinRadAndLen(Criterion):  # 竖曲线最小半径和长度
    Criterion: str  # 数据来源
    ConvexGeneralMinRad: TableField  # 凸竖曲线一般最小半径 (m)
    ConvexLimitMinRad: TableField  # 凸竖曲线极限最小半径 (m)
    ConcaveGeneralMinRad: TableField  # 凹竖曲线一般最小半径 (m)
    ConcaveLimitMinRad: TableField  # 凹竖曲线极限最小半径 (m)
    MinLens: TableField  # 竖曲线最小长度 (m)

class MaxSuperElev(Criterion):  # 超高规范
    Criterion: str  # 数据来源
    MaxSuperElevOnSFR: int  # 积雪冰冻地区最大超高 (%)
    MaxSuperElev: TableField  # 最大超高 (%)
    GradualChangeRatio1: TableField  # 旋转轴在中线的超高渐变率 (1/n)
    GradualChangeRatio2: TableField  # 旋转轴在边线的超高渐变率 (1/n)

class SuperElevation(Criterion):  # 超高
    Criterion: str  # 数据来源
    definitions: Rows  # 超高 (%)
    def query(self, maximum: int, speed: int, radius: int, mode: str = ..., tolerance: int = ...) -> Optional[int]: ...

class CurveWidening(Criterion):  # 加宽
    Criterion: str  # 数据来源
    IsGMinAndLEMaxMode: bool  # 半径范围含上限、不含下限
    ranges: Rows  # 圆曲线半径 (m)
    def query(self, vehicle: str, radius: int) -> Optional[float]: ...

class HasCriteria:
    _core: _designspec.Specification
    @property
    def BeelineLen(self) -> BeelineLen: ...
    @property
    def CircularCurveRad(self) -> CircularCurveRad: ...
    @property
    def CurveMinLen(self) -> CurveMinLen: ...
    @property
    def SmallAngleCurveMinLen(self) -> SmallAngleCurveMinLen: ...
    @property
    def TransitionCurveMinLen(self) -> TransitionCurveMinLen: ...
    @property
    def LonGrad(self) -> LonGrad: ...
    @property
    def MaxResultantGrad(self) -> MaxResultantGrad: ...
    @property
    def LonGradMaxLen(self) -> LonGradMaxLen: ...
    @property
    def LonGradMinLen(self) -> LonGradMinLen: ...
    @property
    def VerticalCurveMinRadAndLen(self) -> VerticalCurveMinRadAndLen: ...
    @property
    def MaxSuperElev(self) -> MaxSuperElev: ...
    @property
    def SuperElevation(self) -> SuperElevation: ...
    @property
    def CurveWidening(self) -> CurveWidening: ...
