target_sources(HalvexHostViewer PRIVATE
  base/Actions.h
  base/CLanguage.cpp
  base/CLanguage.h
  base/CRateMeter.cpp
  base/CRateMeter.h
  base/CTaskRunner.cpp
  base/CTaskRunner.h
  base/CTypedText.cpp
  base/CTypedText.h
  base/CWorkThread.cpp
  base/CWorkThread.h
  base/ModelText.cpp
  base/ModelText.h
  base/Theme.cpp
  base/Theme.h
  base/Wheel.h)
