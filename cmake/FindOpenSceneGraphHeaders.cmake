# Finds the headers of OpenSceneGraph as the target OpenSceneGraph::Headers.
#
# Only the value type osg::Vec3d is used, and all of it stands in headers: nothing to link. Used by
# this build and, installed beside the package, by that of every host.
find_path(OpenSceneGraphHeaders_INCLUDE_DIR osg/Vec3d)
mark_as_advanced(OpenSceneGraphHeaders_INCLUDE_DIR)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(OpenSceneGraphHeaders
    REQUIRED_VARS OpenSceneGraphHeaders_INCLUDE_DIR)

if(OpenSceneGraphHeaders_FOUND AND NOT TARGET OpenSceneGraph::Headers)
    add_library(OpenSceneGraph::Headers INTERFACE IMPORTED GLOBAL)
    target_include_directories(OpenSceneGraph::Headers SYSTEM INTERFACE ${OpenSceneGraphHeaders_INCLUDE_DIR})
endif()
