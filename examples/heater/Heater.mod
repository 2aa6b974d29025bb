Basic model of the heater: plate, heating film, insulation.
