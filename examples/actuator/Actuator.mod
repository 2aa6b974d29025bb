Basic model of the actuator: yoke, armature, coil and air gap.
