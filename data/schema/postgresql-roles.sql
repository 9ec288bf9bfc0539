-- Two roles for those who use the topology store on PostgreSQL.
-- Written by scripts/generate-schema from data/schema/tables.json; do not edit.
--
-- zntopo_reader asks. zntopo_state_writer asks, and changes the columns that the library writes.
-- Nobody else gets anything, the owner apart, who fills the store. Neither role can log in: a
-- site makes its own users and gives them one of the two.
--
-- Run it in the topology's own database, as the owner of the database and its tables who may also
-- create roles, after the tables were made and again whenever this file has changed:
--
--     psql -v ON_ERROR_STOP=1 -d topology -f postgresql-roles.sql

BEGIN;
SET LOCAL search_path = pg_catalog, pg_temp;

DO $$
DECLARE
  role text;
BEGIN
  -- One run at a time in a database.
  PERFORM pg_advisory_xact_lock(hashtext('zntopo_reader'));

  -- Roles belong to the whole server: another database may have them already, or make them now.
  FOREACH role IN ARRAY ARRAY['zntopo_reader', 'zntopo_state_writer'] LOOP
    BEGIN
      EXECUTE format('CREATE ROLE %I NOLOGIN', role);
    EXCEPTION WHEN duplicate_object OR unique_violation THEN
      NULL;
    END;
  END LOOP;

  -- Temporary tables go with the rest: one could hide a table of the store.
  EXECUTE format('REVOKE ALL ON DATABASE %I FROM PUBLIC, zntopo_reader, zntopo_state_writer',
                 current_database());
  EXECUTE format('GRANT CONNECT ON DATABASE %I TO zntopo_reader, zntopo_state_writer',
                 current_database());
  EXECUTE format('ALTER DATABASE %I SET search_path = public, pg_temp', current_database());

  -- A condition in a query can call these, which leave a large object behind.
  IF (SELECT rolsuper FROM pg_roles WHERE rolname = current_user) THEN
    REVOKE EXECUTE ON FUNCTION pg_catalog.lo_creat(integer), pg_catalog.lo_create(oid),
      pg_catalog.lo_from_bytea(oid, bytea) FROM PUBLIC;
  ELSE
    RAISE WARNING 'Only a superuser can take the creation of large objects from everybody.';
  END IF;
END
$$;

REVOKE ALL ON SCHEMA public FROM PUBLIC, zntopo_reader, zntopo_state_writer;
REVOKE ALL ON ALL TABLES IN SCHEMA public FROM PUBLIC, zntopo_reader, zntopo_state_writer;
REVOKE ALL ON ALL SEQUENCES IN SCHEMA public FROM PUBLIC, zntopo_reader, zntopo_state_writer;
REVOKE ALL ON ALL ROUTINES IN SCHEMA public FROM PUBLIC, zntopo_reader, zntopo_state_writer;

GRANT USAGE ON SCHEMA public TO zntopo_reader, zntopo_state_writer;

GRANT SELECT ON
  public.nwentity, public.nwentity_update,
  public.nwnode, public.nwnode_update,
  public.nwinterface, public.nwinterface_update,
  public.nwvlan, public.nwvlan_update,
  public.nwifc, public.nwifc_update,
  public.nwifcctm, public.nwifcctm_update,
  public.nwifcasc, public.nwifcasc_update,
  public.nwhsrp, public.nwhsrp_update,
  public.NWInterfaceAsc, public.NWInterfaceAsc_update,
  public.containment, public.containment_update,
  public.address, public.address_update,
  public.interfaceproperty, public.interfaceproperty_update,
  public.nodeproperty, public.nodeproperty_update,
  public.addressmapping, public.addressmapping_update,
  public.userdefvar, public.userdefvar_update,
  public.hsrpaddress, public.hsrpaddress_update,
  public.state,
  public.nwtopoaudittrail
  TO zntopo_reader, zntopo_state_writer;

GRANT UPDATE (V6CompoundStatus, V6GlobalStatus, V6SiteStatus, StatusChangeTimeUTC, Status)
  ON public.nwentity TO zntopo_state_writer;
GRANT UPDATE (V6CompoundStatus, V6GlobalStatus, V6SiteStatus, StatusChangeTimeUTC, Status)
  ON public.nwentity_update TO zntopo_state_writer;
GRANT UPDATE (V6CompoundStatus, V6GlobalStatus, V6SiteStatus, StatusChangeTimeUTC, Status, SNMPState, L2DomainId)
  ON public.nwnode TO zntopo_state_writer;
GRANT UPDATE (V6CompoundStatus, V6GlobalStatus, V6SiteStatus, StatusChangeTimeUTC, Status, SNMPState, L2DomainId)
  ON public.nwnode_update TO zntopo_state_writer;
GRANT UPDATE (V6CompoundStatus, V6GlobalStatus, V6SiteStatus, StatusChangeTimeUTC, Status, IfAdminState, IfOperStatus, L2DomainId)
  ON public.nwinterface TO zntopo_state_writer;
GRANT UPDATE (V6CompoundStatus, V6GlobalStatus, V6SiteStatus, StatusChangeTimeUTC, Status, IfAdminState, IfOperStatus, L2DomainId)
  ON public.nwinterface_update TO zntopo_state_writer;
GRANT UPDATE (V6CompoundStatus, V6GlobalStatus, V6SiteStatus, StatusChangeTimeUTC, Status)
  ON public.nwifc TO zntopo_state_writer;
GRANT UPDATE (V6CompoundStatus, V6GlobalStatus, V6SiteStatus, StatusChangeTimeUTC, Status)
  ON public.nwifc_update TO zntopo_state_writer;
GRANT UPDATE (State, StateChangeTime)
  ON public.nwifcasc TO zntopo_state_writer;
GRANT UPDATE (PingState)
  ON public.address TO zntopo_state_writer;
GRANT UPDATE (PingState)
  ON public.address_update TO zntopo_state_writer;
GRANT UPDATE (state, HSRPStateCertainty, HSRPPriority)
  ON public.hsrpaddress TO zntopo_state_writer;
GRANT UPDATE (state, HSRPStateCertainty, HSRPPriority)
  ON public.hsrpaddress_update TO zntopo_state_writer;

COMMIT;
