program NameSearch;

{$APPTYPE CONSOLE}

uses
  System.SysUtils, System.Variants, Winapi.ActiveX, System.Win.ComObj;

{ The lines of a screen, each filled up to 80 characters. }
function Screen(const Lines: array of string): string;
var
  Line: string;
begin
  Result := '';
  for Line in Lines do Result := Result + Line.PadRight(80);
end;

procedure ShowPriorities;
var
  Search, Params, Results, Profile, Request, Texts: OleVariant;
  K: Integer;
begin
  { The command of a name search. }
  Params := CreateOleObject('VantroKestoFaces.KeyedCollection');
  Params.Add('strKeyName', 'SMITH/ANNA');
  Params.Add('strKeyCompany', '');
  Params.Add('blnKeyExactMatch', True);
  Params.Add('strKeyOfficeID', '');
  Search := CreateOleObject('VantroProfileUtils.CPDNTrans');
  Writeln(string(Search.CreateCommand(Params)));

  { What the host answered. An empty response has no results. }
  Results := Search.VerifyResponse(Screen(['PDN/-SMITH/ANNA/', '*T* SMITH/ANNA MS', '>']));
  if VarIsClear(Results) then Exit;
  Writeln('profile shown: ', Boolean(Results.Item('blnKeyTrProfile').Value));

  { The elements of a profile. }
  Profile := CreateOleObject('VantroProfileUtils.CProfile');
  Request := CreateOleObject('VantroKestoFaces.KeyedCollection');
  Request.Add('strKeyPrefix', 'PPR');
  Profile.ProfileElements(Screen(['PDN/-SMITH/ANNA/', '*T* SMITH/ANNA MS', '------- PRIORITY', '1  PPR/WINDOW SEAT',
    '2  PPR/TEA', 'END OF DISPLAY']), Request);
  Texts := Request.Item('strKeyElement()').Value;
  for K := 1 to VarArrayHighBound(Texts, 1) do Writeln(string(Texts[K]));

  { A numbered error: its number is the low 16 bits. }
  try
    CreateOleObject('VantroProfileUtils.CPXTrans').CreateCommand;
  except
    on E: EOleException do Writeln(E.ErrorCode and $FFFF, ' ', E.Source);
  end;
end;

begin
  CoInitialize(nil);
  ShowPriorities;
end.
