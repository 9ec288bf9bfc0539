-- What the sample network does not have, and the bridge meets in other stores.
-- Texts: beyond the basic plane, and not UTF-8.
update nwnode set description = 'Wave 🌊, é' where entityname = 'berth-planner';
update nwnode set description = cast(x'61ff62' as text)
  where entityname = 'tally-desk-1';
