// Constants of nature, with the digits that the workbench has always calculated with.
#pragma once

namespace zorvant {

inline constexpr double kGasConstant = 8.3145;    ///< J/(mol K)
inline constexpr double kBoltzmann = 1.38066E-23; ///< J/K
inline constexpr double kPlanck = 6.62618E-34;    ///< J s

} // namespace zorvant
