# Calls an operation by name alone. PowerShell's own call reads the type library, and demands [ref] where an argument is
# declared by reference, as those of Add are.
function Invoke-Operation($object, [string] $name, [object[]] $arguments = @()) {
    for ($k = 0; $k -lt $arguments.Count; $k++) {
        if ($null -ne $arguments[$k]) { $arguments[$k] = $arguments[$k].PSObject.BaseObject }
    }
    $target = $object.PSObject.BaseObject
    , [System.__ComObject].InvokeMember($name, [Reflection.BindingFlags]'InvokeMethod, GetProperty', $null, $target,
                                        $arguments)
}

function New-Collection([System.Collections.IDictionary] $entries) {
    $made = New-Object -ComObject VantroKestoFaces.KeyedCollection
    foreach ($key in $entries.Keys) { [void] (Invoke-Operation $made Add @($key, $entries[$key])) }
    , $made
}

function Get-Value($collection, [string] $key) {
    Invoke-Operation (Invoke-Operation $collection Item (, $key)) Value
}

# The lines of a screen, each filled up to 80 characters.
function New-Screen([string[]] $lines) { -join ($lines | ForEach-Object { $_.PadRight(80) }) }

# The command of a name search.
$params = New-Collection @{ strKeyName = 'SMITH/ANNA'; strKeyCompany = ''; blnKeyExactMatch = $true; strKeyOfficeID = '' }
$search = New-Object -ComObject VantroProfileUtils.CPDNTrans
Invoke-Operation $search CreateCommand (, $params)

# What the host answered.
$results = Invoke-Operation $search VerifyResponse (, (New-Screen 'PDN/-SMITH/ANNA/', '*T* SMITH/ANNA MS', '>'))
"profile shown: $(Get-Value $results blnKeyTrProfile)"

# The elements of a profile.
$profileParser = New-Object -ComObject VantroProfileUtils.CProfile
$request = New-Collection @{ strKeyPrefix = 'PPR' }
$display = New-Screen 'PDN/-SMITH/ANNA/', '*T* SMITH/ANNA MS', '------- PRIORITY', '1  PPR/WINDOW SEAT', '2  PPR/TEA',
    'END OF DISPLAY'
[void] (Invoke-Operation $profileParser ProfileElements @($display, $request))
(Get-Value $request 'strKeyElement()') | Where-Object { $_ -ne '' }

# A numbered error: its number is the low 16 bits.
try {
    [void] (Invoke-Operation (New-Object -ComObject VantroProfileUtils.CPXTrans) CreateCommand (, $null))
} catch {
    $failure = $_.Exception.GetBaseException()
    "$($failure.HResult -band 0xFFFF) $($failure.Source)"
}
